// Messages about a composed command, in the words of the options it was composed from.

#pragma once

#include <span>
#include <string>
#include <string_view>

#include "workbench/dataset/dataset.h"

namespace workbench {

// A word of the command ("MAXLAG"), or a word with its value ("SEASONAL=YES"), and the option that writes it.
struct OptionWord {
  std::string_view keyword;
  std::string_view option;
};

// The message with every such word replaced, "MAXLAG=4" by "--maxlag 4"; of several entries for one word the first that
// fits. Words that are names of variables stay, and so do the lines below the first: they show the command.
std::string inOptions(const std::string& message, std::span<const OptionWord> words, const Dataset& dataset);

}  // namespace workbench
