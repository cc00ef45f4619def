# Flags of every target. No contraction and no fast-math: the same source gives the same bits on every machine.
add_library(varmodel_flags INTERFACE)
target_include_directories(varmodel_flags INTERFACE ${PROJECT_SOURCE_DIR})
target_compile_options(varmodel_flags INTERFACE
  -ffp-contract=off -Wall -Wextra -Wpedantic -Wconversion -Wsign-conversion -Wshadow -Wnon-virtual-dtor
  -Woverloaded-virtual -Werror)
if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
  # g++ 12 and 13 report overlaps inside std::string that cannot happen (GCC bug 105651).
  target_compile_options(varmodel_flags INTERFACE -Wno-restrict)
elseif(CMAKE_CXX_COMPILER_ID STREQUAL "Clang")
  target_compile_options(varmodel_flags INTERFACE -Wno-unknown-warning-option)
endif()
if(VARMODEL_SANITIZE)
  target_compile_options(varmodel_flags INTERFACE -fsanitize=${VARMODEL_SANITIZE} -fno-omit-frame-pointer)
  if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
    # Instrumented code makes g++ doubt the state of std::regex and std::variant (GCC bug 105562).
    target_compile_options(varmodel_flags INTERFACE -Wno-maybe-uninitialized)
  endif()
  target_link_options(varmodel_flags INTERFACE -fsanitize=${VARMODEL_SANITIZE})
endif()
