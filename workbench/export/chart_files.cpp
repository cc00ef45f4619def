#include "workbench/export/chart_files.h"

#include <algorithm>
#include <system_error>

#include "workbench/charts/chart.h"
#include "workbench/export/item_names.h"
#include "workbench/plots/gnuplot.h"
#include "workbench/plots/picture_script.h"

namespace workbench {

namespace {

struct NamedChart {
  std::string name;
  Chart chart;
};

std::vector<NamedChart> drawableCharts(const std::vector<ExportedDocument>& documents, const Language& language) {
  std::vector<NamedChart> charts;
  ItemNames names;
  for (const ExportedDocument& one : documents) {
    const Json* items = itemsOf(*one.document);
    for (rapidjson::SizeType i = 0; items != nullptr && i < items->Size(); ++i) {
      if (one.view.hidden.contains(i) || textProperty((*items)[i], "type") != "chart") continue;
      std::string name = names.take(one.ids.at(i), one.procedure, one.command);
      Chart chart = readChart((*items)[i], language.tr("(not a text)"));
      if (hasPicture(chart)) charts.push_back({std::move(name), std::move(chart)});
    }
  }
  return charts;
}

// A PDF says when it was made; without that, equal charts are equal files. Blanks keep the places that it refers to.
void removeDate(std::string& picture) {
  constexpr std::string_view kBegin = "/CreationDate (";
  const std::size_t begin = picture.find(kBegin);
  const std::size_t end = picture.find(')', begin);
  if (end != std::string::npos)
    std::fill(picture.begin() + static_cast<std::ptrdiff_t>(begin),
              picture.begin() + static_cast<std::ptrdiff_t>(end) + 1, ' ');
}

std::string notInstalled(const Language& language) {
  return language.tr(
      "The charts are not written: gnuplot is not installed. Install it (for instance: apt-get install gnuplot-nox), "
      "or "
      "leave out --charts.");
}

}  // namespace

std::vector<std::string> chartFormatWords() {
  std::vector<std::string> words;
  for (const PictureFormat& format : kPictureFormats) words.emplace_back(format.word);
  return words;
}

ChartFiles chartFiles(const std::vector<ExportedDocument>& documents, const std::vector<std::string>& formats,
                      const Language& language) {
  ChartFiles result;
  try {
    for (const NamedChart& one : drawableCharts(documents, language)) {
      for (const PictureFormat& format : kPictureFormats) {
        if (std::ranges::count(formats, format.word) == 0) continue;
        auto picture = runGnuplot(pictureScript(one.chart, format, language));
        if (!picture) return {{}, notInstalled(language)};
        const std::string file = one.name + "." + std::string(format.word);
        if (picture->starts_with(format.begin)) {
          if (format.word == "pdf") removeDate(*picture);
          result.files.push_back({file, std::move(*picture)});
        } else {
          result.problem = language.tr(
              "This gnuplot cannot draw ^1. Choose another of the formats svg, png and pdf with --chart-format.", file);
        }
      }
    }
  } catch (const std::system_error& error) {
    return {{}, language.tr("The charts are not written: ^1.", std::string(error.what()))};
  }
  return result;
}

}  // namespace workbench
