#include "workbench/cli/usage_message.h"

#include <filesystem>
#include <regex>
#include <vector>

#include "workbench/base/suggest.h"

namespace workbench {

namespace {

class UsageMessage {
 public:
  UsageMessage(const CLI::App& program, std::span<const std::string> words) : program_(program), words_(words) {
    const auto used = program.get_subcommands();
    if (!used.empty()) subcommand_ = used.front();
  }

  Notice of(const CLI::ParseError& error) const {
    if (subcommand_ == nullptr) return noSubcommand();
    std::smatch found;
    const std::string text = error.what();
    const auto says = [&](const char* pattern) { return std::regex_match(text, found, std::regex(pattern)); };
    if (says("The following arguments? (?:was|were) not expected: (.*)")) return unexpected(found[1]);
    if (says("(\\S+) is required")) return Notice("option.missing", "^1 is missing.", found[1].str()) + seeHelp();
    if (says("Could not convert: (\\S+) = (.*)"))
      return Notice("option.no-number", "^1 takes a number; \"^2\" is none.", found[1].str(), found[2].str());
    if (says("(\\S+): .* required .* missing"))
      return Notice("option.no-value", "^1 needs a value behind it.", found[1].str()) + seeHelp();
    if (says("(\\S+) excludes (\\S+)"))
      return Notice("option.exclude", "^1 and ^2 exclude each other. Leave out one of the two.", found[1].str(),
                    found[2].str());
    if (says("(\\S+) requires (\\S+)"))
      return Notice("option.needs", "^1 needs ^2 beside it.", found[1].str(), found[2].str());
    return Notice("option.value", "^1", text);
  }

 private:
  Notice noSubcommand() const {
    std::vector<std::string> names;
    for (const CLI::App* one : program_.get_subcommands({})) names.push_back(one->get_name());
    if (words_.empty()) return Notice("option.no-subcommand", "Give a subcommand: ^1.", listed(names)) + seeHelp();
    const std::string& word = words_.front();
    std::error_code unknown;
    if (std::filesystem::is_regular_file(word, unknown)) {
      return Notice("option.file-first",
                    "\"^1\" is a file; a subcommand goes first, as in varmodel fit ^1 --endogenous A B.", word);
    }
    const Notice nearest = didYouMeanWord(word, names);
    return Notice("option.unknown-subcommand", "there is no subcommand \"^1\".", word) +
           (nearest.empty() ? phrase("Subcommands: ^1.", listed(names)) : nearest);
  }

  // An option that there is not comes with the value behind it.
  Notice unexpected(const std::string& list) const {
    const std::size_t begin = list.starts_with('-') ? 0 : list.find(" -") + 1;  // npos + 1 is the beginning
    const std::string word = list.substr(begin, list.find(' ', begin) - begin);
    if (!word.starts_with('-')) {
      return Notice("option.stray-word",
                    "\"^1\" belongs to no option. The words of a list stand behind their option, parted by blanks.",
                    word) +
             seeHelp();
    }
    std::vector<std::string> names;
    for (const CLI::Option* option : subcommand_->get_options()) {
      for (const std::string& name : option->get_lnames()) names.push_back("--" + name);
    }
    const std::string name = word.substr(0, word.find('='));
    const Notice nearest = didYouMeanWord(name, names);
    return Notice("option.unknown", "^1 has no option ^2.", subcommand_->get_name(), name) +
           (nearest.empty() ? seeHelp() : nearest);
  }

  Notice seeHelp() const {
    return phrase("^1 --help lists what there is.",
                  subcommand_ == nullptr ? std::string("varmodel") : "varmodel " + subcommand_->get_name());
  }

  const CLI::App& program_;
  std::span<const std::string> words_;
  const CLI::App* subcommand_ = nullptr;
};

}  // namespace

Notice usageMessage(const CLI::App& program, const CLI::ParseError& error, std::span<const std::string> words) {
  return UsageMessage(program, words).of(error);
}

}  // namespace workbench
