// The texts that the sources show to users, read out of the sources themselves.

#pragma once

#include <compare>
#include <map>
#include <set>
#include <string>

// Keys that are looked up: literals given to localize, tr, phrase and the few functions that pass theirs on to them.
std::set<std::string> lookedUpKeys();

// What the workbench, or a procedure that it knows, tells: an English text with its markers, and what is advised beside
// it.
struct SourceNotice {
  std::string text;
  std::string remedy;

  friend auto operator<=>(const SourceNotice&, const SourceNotice&) = default;
};

// By their ids: a literal id with a literal text behind it.
std::map<std::string, std::set<SourceNotice>> notices();

// What the procedure tells its user: messages and the warnings of its trace, with ^1, ^2, ... where a value is put in.
std::set<std::string> procedureMessages();
