// The texts that the sources show to users, read out of the sources themselves.

#pragma once

#include <set>
#include <string>

// Keys that are looked up: literals given to localize, tr and the few functions that pass theirs on to them.
std::set<std::string> lookedUpKeys();

// What the procedure tells its user: messages and the warnings of its trace, with ^1, ^2, ... where a value is put in.
std::set<std::string> procedureMessages();
