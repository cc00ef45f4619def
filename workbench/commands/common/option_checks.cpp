#include "workbench/commands/common/option_checks.h"

#include <charconv>
#include <optional>

#include "workbench/base/letter_case.h"
#include "workbench/base/suggest.h"
#include "workbench/dataset/dataset.h"
#include "workbench/edge/texts.h"

namespace workbench {

namespace {

template <typename Number>
std::optional<Number> numberIn(const std::string& text) {
  Number number{};
  const char* end = text.data() + text.size();
  const auto [stop, error] = std::from_chars(text.data(), end, number);
  return stop == end && error == std::errc() ? std::optional(number) : std::nullopt;
}

std::string noKeyword(const std::string& given, const std::vector<std::string>& words) {
  if (const auto nearest = nearestName(given, words))
    return tr("there is no \"^1\". Did you mean ^2?", given, *nearest);
  return tr("there is no \"^1\". Give one of: ^2.", given, listed(words));
}

}  // namespace

CLI::Validator keywordOf(std::vector<std::string> words) {
  const auto check = [words](std::string& given) -> std::string {
    for (const std::string& word : words) {
      if (!sameName(word, given)) continue;
      given = word;
      return {};
    }
    return noKeyword(given, words);
  };
  return CLI::Validator(check, "");
}

CLI::Validator percentage() {
  const auto check = [](std::string& given) -> std::string {
    const std::optional<double> level = numberIn<double>(given);
    if (!level || *level <= 0.0 || *level > 1.0) return {};
    return tr("^1 is a share, and the level is a percentage. Did you mean ^2?", given,
              CLI::detail::to_string(100.0 * *level));
  };
  return CLI::Validator(check, "");
}

CLI::Validator atLeastOne(std::string remedy) {
  const auto check = [remedy = std::move(remedy)](std::string& given) -> std::string {
    const std::optional<long> number = numberIn<long>(given);
    return !number || *number >= 1 ? std::string() : tr("^1 is no number from 1 on. ^2", given, tr(remedy));
  };
  return CLI::Validator(check, "");
}

}  // namespace workbench
