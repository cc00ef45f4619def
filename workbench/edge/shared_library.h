// A library that is loaded at run time.

#pragma once

#include <filesystem>
#include <string>

namespace workbench {

// What the file of a library is called: NAME.so, on Windows NAME.dll.
std::string libraryFile(const std::string& name);

// Unloaded with the object.
class SharedLibrary {
 public:
  // Throws UsageError with the system's reason when it cannot be loaded.
  explicit SharedLibrary(const std::filesystem::path& file);
  SharedLibrary(const SharedLibrary&) = delete;
  SharedLibrary& operator=(const SharedLibrary&) = delete;
  ~SharedLibrary();

  // Null when the library exports no such function.
  void (*function(const std::string& name) const)();

 private:
  void* handle_;
};

}  // namespace workbench
