// Display texts: English keys looked up in the host's dictionary, with "^1" and "^2" as places for arguments.

#pragma once

#include <initializer_list>
#include <memory>
#include <string>
#include <vector>

#include "host/localization.h"

namespace procedures {

// The dictionary of the session's language for the procedure with this title; null when it cannot be allocated.
std::unique_ptr<FacSTDictionary> openDictionary(const std::string& procedureTitle);

// The text of the key, or the key itself without a dictionary. The first "^1" becomes the first argument and the first
// "^2" the second; a marker that is not there is passed over.
std::string displayText(const FacSTDictionary* dictionary, const std::string& key,
                        std::initializer_list<std::string> arguments = {});

std::vector<std::string> displayTexts(const FacSTDictionary* dictionary, std::initializer_list<const char*> keys);

}  // namespace procedures
