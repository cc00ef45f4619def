#include "workbench/dates/date_text.h"

#include <algorithm>
#include <array>
#include <cmath>

#include "workbench/base/letter_case.h"

namespace workbench {

namespace {

constexpr std::array kForms{DateForm::quarter,      DateForm::month,       DateForm::week,      DateForm::year,
                            DateForm::colonQuarter, DateForm::colonMonth,  DateForm::yearMonth, DateForm::yearMonthDay,
                            DateForm::dayMonthYear, DateForm::monthDayYear};

// A text as a row of numbers and words, without what stands between them.
struct Tokens {
  struct Token {
    std::string word;  // in small letters; empty for a number
    std::int64_t number = 0;
    std::size_t digits = 0;
  };
  std::vector<Token> tokens;
  bool colon = false;

  // 'y' a number of four digits, 'n' one of one or two, 'l' a longer one, 'w' a word.
  std::string shape() const {
    std::string shape;
    for (const Token& token : tokens) {
      shape += !token.word.empty() ? 'w' : token.digits == 4 ? 'y' : token.digits <= 2 ? 'n' : 'l';
    }
    return shape;
  }
  std::int64_t number(std::size_t i) const { return tokens[i].number; }
};

bool isDigit(char c) {
  return c >= '0' && c <= '9';
}

bool isSeparator(char c) {
  return std::string_view(" -/.,:").find(c) != std::string_view::npos;
}

Tokens tokensOf(std::string_view text) {
  constexpr std::size_t kMostDigits = 8;
  Tokens result;
  for (std::size_t i = 0; i < text.size();) {
    Tokens::Token token;
    if (isSeparator(text[i])) {
      result.colon = result.colon || text[i] == ':';
      ++i;
      continue;
    }
    if (isDigit(text[i])) {
      for (; i < text.size() && isDigit(text[i]) && token.digits <= kMostDigits; ++i, ++token.digits) {
        token.number = token.number * 10 + (text[i] - '0');
      }
    } else {
      for (; i < text.size() && !isDigit(text[i]) && !isSeparator(text[i]); ++i) token.word += lowerCase(text[i]);
    }
    result.tokens.push_back(std::move(token));
  }
  return result;
}

// 1 to 12 by the first letters of its English or German name; 0 for other words.
std::int64_t monthOfName(const std::string& word) {
  struct Name {
    std::string_view letters;
    std::int64_t month;
  };
  static constexpr std::array<Name, 17> kNames{{{"jan", 1},
                                                {"feb", 2},
                                                {"mar", 3},
                                                {"apr", 4},
                                                {"may", 5},
                                                {"jun", 6},
                                                {"jul", 7},
                                                {"aug", 8},
                                                {"sep", 9},
                                                {"oct", 10},
                                                {"nov", 11},
                                                {"dec", 12},
                                                {"m\xc3\xa4r", 3},
                                                {"m\xc3\x84r", 3},
                                                {"mai", 5},
                                                {"okt", 10},
                                                {"dez", 12}}};
  const auto* found =
      std::ranges::find_if(kNames, [&](const Name& name) { return std::string_view(word).starts_with(name.letters); });
  return found == kNames.end() ? 0 : found->month;
}

bool isQuarterWord(const std::string& word) {
  return word == "q" || word == "qtr" || word == "quarter" || word == "quartal";
}

std::optional<Period> period(Unit unit, std::initializer_list<std::int64_t> components) {
  return Period::of(unit, std::vector<std::int64_t>(components));
}

std::optional<Period> quarterOf(const Tokens& t, const std::string& shape) {
  if (shape == "ywn" && isQuarterWord(t.tokens[1].word)) return period(Unit::quarter, {t.number(0), t.number(2)});
  if (shape == "wny" && isQuarterWord(t.tokens[0].word)) return period(Unit::quarter, {t.number(2), t.number(1)});
  if (shape == "nwy" && isQuarterWord(t.tokens[1].word)) return period(Unit::quarter, {t.number(2), t.number(0)});
  return std::nullopt;
}

std::optional<Period> monthOf(const Tokens& t, const std::string& shape) {
  if (shape == "ywn" && t.tokens[1].word == "m") return period(Unit::month, {t.number(0), t.number(2)});
  if (shape == "yn" && !t.colon) return period(Unit::month, {t.number(0), t.number(1)});
  if (shape == "ny" && !t.colon) return period(Unit::month, {t.number(1), t.number(0)});
  if (shape == "wy") return period(Unit::month, {t.number(1), monthOfName(t.tokens[0].word)});
  if (shape == "yw") return period(Unit::month, {t.number(0), monthOfName(t.tokens[1].word)});
  return std::nullopt;
}

std::optional<Period> dayMonthYearOf(const Tokens& t, const std::string& shape) {
  if (shape == "nny") return period(Unit::day, {t.number(2), t.number(1), t.number(0)});
  if (shape == "nwy") return period(Unit::day, {t.number(2), monthOfName(t.tokens[1].word), t.number(0)});
  return std::nullopt;
}

std::optional<Period> monthDayYearOf(const Tokens& t, const std::string& shape) {
  if (shape == "nny") return period(Unit::day, {t.number(2), t.number(0), t.number(1)});
  if (shape == "wny") return period(Unit::day, {t.number(2), monthOfName(t.tokens[0].word), t.number(1)});
  return std::nullopt;
}

std::optional<Period> yearMonthDayOf(const Tokens& t, const std::string& shape) {
  if (shape == "ynn") return period(Unit::day, {t.number(0), t.number(1), t.number(2)});
  if (shape != "l" || t.tokens[0].digits != 8) return std::nullopt;
  return period(Unit::day, {t.number(0) / 10000, t.number(0) / 100 % 100, t.number(0) % 100});
}

std::optional<Period> readTokens(const Tokens& t, DateForm form) {
  const std::string shape = t.shape();
  switch (form) {
    case DateForm::quarter:
      return quarterOf(t, shape);
    case DateForm::month:
      return monthOf(t, shape);
    case DateForm::week:
      return shape == "ywn" && t.tokens[1].word == "w" ? period(Unit::week, {t.number(0), t.number(2)}) : std::nullopt;
    case DateForm::year:
      return shape == "y" ? period(Unit::year, {t.number(0)}) : std::nullopt;
    case DateForm::colonQuarter:
      return shape == "yn" && t.colon ? period(Unit::quarter, {t.number(0), t.number(1)}) : std::nullopt;
    case DateForm::colonMonth:
      return shape == "yn" && t.colon ? period(Unit::month, {t.number(0), t.number(1)}) : std::nullopt;
    case DateForm::yearMonth:
      return shape == "l" && t.tokens[0].digits == 6 ? period(Unit::month, {t.number(0) / 100, t.number(0) % 100})
                                                     : std::nullopt;
    case DateForm::yearMonthDay:
      return yearMonthDayOf(t, shape);
    case DateForm::dayMonthYear:
      return dayMonthYearOf(t, shape);
    case DateForm::monthDayYear:
      break;
  }
  return monthDayYearOf(t, shape);
}

std::size_t countOfForm(std::span<const std::string> texts, DateForm form) {
  return static_cast<std::size_t>(
      std::ranges::count_if(texts, [&](const std::string& text) { return readPeriod(text, form).has_value(); }));
}

bool isWhole(double number) {
  return number == std::floor(number);
}

using NumberReader = std::optional<Period> (*)(double number);

std::optional<Period> yearOfNumber(double number) {
  return isWhole(number) && number >= 1000.0 && number < 3000.0
             ? period(Unit::year, {static_cast<std::int64_t>(number)})
             : std::nullopt;
}

// 200103 or 20010331, read as its digits are.
template <int digits>
std::optional<Period> digitsOfNumber(double number) {
  const double least = digits == 6 ? 100001.0 : 10000101.0;
  if (!isWhole(number) || number < least || number >= least * 3.0) return std::nullopt;
  return readPeriod(std::to_string(static_cast<std::int64_t>(number)),
                    digits == 6 ? DateForm::yearMonth : DateForm::yearMonthDay);
}

// A year and a fraction of it, rounded to the nearest of its `count` periods; fractions are often cut to two digits.
template <int count>
std::optional<Period> fractionOfNumber(double number) {
  constexpr double kCutting = 0.006;
  if (!(number >= 1000.0 && number < 3000.0)) return std::nullopt;
  const double year = std::floor(number + kCutting);
  const double place = (number - year) * count;
  if (std::abs(place - std::round(place)) > kCutting * count) return std::nullopt;
  return period(count == 4 ? Unit::quarter : Unit::month,
                {static_cast<std::int64_t>(year), static_cast<std::int64_t>(std::llround(place)) + 1});
}

std::optional<Period> tenthOfNumber(double number) {
  if (!(number >= 1000.0 && number < 3000.0)) return std::nullopt;
  const double tenths = number * 10.0;
  if (std::abs(tenths - std::round(tenths)) > 1e-6) return std::nullopt;
  const std::int64_t whole = std::llround(tenths);
  return period(Unit::quarter, {whole / 10, whole % 10});
}

}  // namespace

std::optional<Period> readPeriod(std::string_view text, DateForm form) {
  return readTokens(tokensOf(text), form);
}

std::optional<Period> readPeriod(std::string_view text, Unit unit) {
  const Tokens tokens = tokensOf(text);
  for (const DateForm form : kForms) {
    const std::optional<Period> found = readTokens(tokens, form);
    if (found && found->unit() == unit) return found;
  }
  return std::nullopt;
}

std::vector<DateForm> formsOf(std::span<const std::string> texts) {
  std::vector<DateForm> forms;
  const auto filled = std::ranges::count_if(texts, [](const std::string& text) { return !text.empty(); });
  for (const DateForm form : kForms) {
    if (filled > 0 && countOfForm(texts, form) == static_cast<std::size_t>(filled)) forms.push_back(form);
  }
  return forms;
}

std::optional<OddText> oddText(std::span<const std::string> texts) {
  const auto* best = std::ranges::max_element(kForms, {}, [&](DateForm form) { return countOfForm(texts, form); });
  if (2 * countOfForm(texts, *best) < texts.size()) return std::nullopt;
  const auto reads = [&](const std::string& text) { return readPeriod(text, *best).has_value(); };
  const auto odd =
      std::ranges::find_if_not(texts, [&](const std::string& text) { return text.empty() || reads(text); });
  const auto like = std::ranges::find_if(texts, reads);
  if (odd == texts.end() || like == texts.end()) return std::nullopt;
  return OddText{static_cast<std::size_t>(odd - texts.begin()), static_cast<std::size_t>(like - texts.begin())};
}

std::vector<Period> periodsOfNumbers(std::span<const double> numbers) {
  constexpr std::array<NumberReader, 6> kReaders{yearOfNumber,        digitsOfNumber<6>, digitsOfNumber<8>,
                                                 fractionOfNumber<4>, tenthOfNumber,     fractionOfNumber<12>};
  for (const NumberReader read : kReaders) {
    std::vector<Period> periods;
    for (const double number : numbers) {
      const std::optional<Period> one = read(number);
      if (!one) break;
      periods.push_back(*one);
    }
    if (periods.size() == numbers.size()) return periods;
  }
  return {};
}

}  // namespace workbench
