#include "workbench/render/latex_text.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <cstdint>
#include <utility>

#include "workbench/base/utf8.h"
#include "workbench/base/visible_text.h"

namespace workbench {

namespace {

// What a plain text means by them LaTeX takes for commands, for ligatures, or, before a row, for arguments.
constexpr std::array<std::pair<char32_t, std::string_view>, 18> kMarkup{{{U'\\', "\\textbackslash{}"},
                                                                         {U'{', "\\{"},
                                                                         {U'}', "\\}"},
                                                                         {U'$', "\\$"},
                                                                         {U'&', "\\&"},
                                                                         {U'#', "\\#"},
                                                                         {U'_', "\\_"},
                                                                         {U'%', "\\%"},
                                                                         {U'~', "\\textasciitilde{}"},
                                                                         {U'^', "\\textasciicircum{}"},
                                                                         {U'<', "\\textless{}"},
                                                                         {U'>', "\\textgreater{}"},
                                                                         {U'|', "\\textbar{}"},
                                                                         {U'"', "{\\char34}"},
                                                                         {U'`', "{\\char96}"},
                                                                         {U'[', "{[}"},
                                                                         {U']', "{]}"},
                                                                         {U'*', "{*}"}}};

constexpr std::array<std::pair<char32_t, std::string_view>, 50> kSymbols{
    {{U'\u00a0', "~"},         {U'\u00ad', "\\-"},        {U'\u2013', "--"},        {U'\u2014', "---"},
     {U'\u2018', "`"},         {U'\u2019', "'"},          {U'\u201c', "``"},        {U'\u201d', "''"},
     {U'\u201e', ",,"},        {U'\u2022', "$\\bullet$"}, {U'\u2026', "\\ldots{}"}, {U'\u20ac', "\\texteuro{}"},
     {U'\u2212', "$-$"},       {U'\u2260', "$\\ne$"},     {U'\u2264', "$\\le$"},    {U'\u2265', "$\\ge$"},
     {U'\u221e', "$\\infty$"}, {U'α', "$\\alpha$"},       {U'β', "$\\beta$"},       {U'γ', "$\\gamma$"},
     {U'δ', "$\\delta$"},      {U'ε', "$\\varepsilon$"},  {U'ζ', "$\\zeta$"},       {U'η', "$\\eta$"},
     {U'θ', "$\\theta$"},      {U'ι', "$\\iota$"},        {U'κ', "$\\kappa$"},      {U'λ', "$\\lambda$"},
     {U'μ', "$\\mu$"},         {U'ν', "$\\nu$"},          {U'ξ', "$\\xi$"},         {U'π', "$\\pi$"},
     {U'ρ', "$\\rho$"},        {U'σ', "$\\sigma$"},       {U'τ', "$\\tau$"},        {U'υ', "$\\upsilon$"},
     {U'φ', "$\\varphi$"},     {U'χ', "$\\chi$"},         {U'ψ', "$\\psi$"},        {U'ω', "$\\omega$"},
     {U'Γ', "$\\Gamma$"},      {U'Δ', "$\\Delta$"},       {U'Θ', "$\\Theta$"},      {U'Λ', "$\\Lambda$"},
     {U'Ξ', "$\\Xi$"},         {U'Π', "$\\Pi$"},          {U'Σ', "$\\Sigma$"},      {U'Φ', "$\\Phi$"},
     {U'Ψ', "$\\Psi$"},        {U'Ω', "$\\Omega$"}}};

// Letters of the European languages, which pdfLaTeX reads as they stand.
bool isKnownLetter(char32_t c) {
  constexpr std::u32string_view kUnknown = U"\u0126\u0127\u0138\u013f\u0140\u0149\u0166\u0167\u017f";
  return c > 0xa0 && c < 0x180 && kUnknown.find(c) == std::u32string_view::npos;
}

template <class Table>
const std::string_view* findIn(const Table& table, char32_t c) {
  const auto found = std::ranges::find(table, c, [](const auto& entry) { return entry.first; });
  return found == table.end() ? nullptr : &found->second;
}

std::string written(char32_t c, std::string_view bytes) {
  if (const auto* command = findIn(kMarkup, c)) return std::string(*command);
  if (const auto* command = findIn(kSymbols, c)) return std::string(*command);
  if (c < 0x80 || isKnownLetter(c)) return std::string(bytes);
  return fmt::format("\\ifdefined\\Umathcode {}\\else U+{:04X}\\fi{{}}", bytes, static_cast<std::uint32_t>(c));
}

// Two of them in a row would print as one other character.
bool joins(char c) {
  return c == '-' || c == '\'' || c == ',';
}

}  // namespace

std::string latexText(std::string_view text) {
  const std::string visible = visibleText(text);
  std::string out;
  for (std::string_view rest = visible; !rest.empty();) {
    const CodePoint first = firstCodePoint(rest);
    if (!out.empty() && joins(rest[0]) && out.back() == rest[0]) out += "{}";
    out += written(first.value, rest.substr(0, first.bytes));
    rest.remove_prefix(first.bytes);
  }
  return out;
}

}  // namespace workbench
