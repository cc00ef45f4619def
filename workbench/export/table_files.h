// The tables of a run as files.

#pragma once

#include <string>
#include <vector>

#include "workbench/export/exported_document.h"

namespace workbench {

// The words that choose a format: those of table_formats.h and "tidy".
std::vector<std::string> tableFormatWords();

// Every table that is shown, in each of the formats; "tidy" gives a file for each kind of result instead.
std::vector<FileText> tableFiles(const std::vector<ExportedDocument>& documents,
                                 const std::vector<std::string>& formats, const Language& language);

}  // namespace workbench
