// The running process's surroundings.

#pragma once

#include <filesystem>

namespace workbench {

// To be called first. Gives the standard streams that are closed a descriptor that nothing can be read from or written
// to; else the next file that is opened would take their place and what is shown would go into it. Bytes go through the
// streams as they are, and a file-size limit or a reader that went away becomes an error of the write.
void prepareProcess();

// An environment variable, also for the libraries that are loaded.
void setEnvironment(const char* name, const char* value);

// Names of the files that standard input and output are redirected to.
std::filesystem::path standardInputFile();
std::filesystem::path standardOutputFile();
// Whether it is the device that takes everything.
bool isNullDevice(const std::filesystem::path& file);

}  // namespace workbench
