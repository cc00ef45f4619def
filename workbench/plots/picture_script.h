// Charts as pictures, in gnuplot's command language.

#pragma once

#include <array>
#include <string>
#include <string_view>

#include "workbench/base/language.h"
#include "workbench/charts/chart.h"

namespace workbench {

struct PictureFormat {
  std::string_view word;      // that chooses it on a command line, and the extension of its files
  std::string_view terminal;  // gnuplot's
  std::string_view begin;     // of every such file
  double scale;               // units of the terminal a pixel of the page
};

inline constexpr std::array<PictureFormat, 3> kPictureFormats{
    {{"svg", "svg noenhanced font 'Arial,11' background '#ffffff'", "<?xml", 1},
     {"png", "pngcairo noenhanced font 'Sans,9' fontscale 2.5 linewidth 2.5 pointscale 2.5 dashlength 1.2", "\x89PNG",
      2.5},
     {"pdf", "pdfcairo noenhanced font 'Sans,9' linewidth 1", "%PDF", 1.0 / 96}}};

// Commands that write the whole picture to standard output: title, axes, legend where there are several series, and for
// a panel its small charts below and beside their headings. What is drawn is what the report shows first. Expects a
// chart that has values.
std::string pictureScript(const Chart& chart, const PictureFormat& format, const Language& language = {});

// Whether there is anything to draw, in a panel in any of its charts.
bool hasPicture(const Chart& chart);

}  // namespace workbench
