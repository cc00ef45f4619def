// The charts of a run as pictures, drawn by gnuplot.

#pragma once

#include <string>
#include <vector>

#include "workbench/export/exported_document.h"

namespace workbench {

struct ChartFiles {
  std::vector<FileText> files;
  std::string problem;  // why not all are drawn, with the remedy
};

// The words that choose a format: svg, png, pdf.
std::vector<std::string> chartFormatWords();

// Every chart that is shown and has values, in each of the formats.
ChartFiles chartFiles(const std::vector<ExportedDocument>& documents, const std::vector<std::string>& formats,
                      const Language& language);

}  // namespace workbench
