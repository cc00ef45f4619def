# Gathers what the report embeds: the chart library's bundles from node_modules (scripts/setup.sh fills it) without their
# source maps, the licences of all that they hold, and the page's own files. Done when CMake runs; a changed input makes
# it run again.
set(report_assets ${PROJECT_BINARY_DIR}/report_assets)

function(report_write name text)
  if(text MATCHES "</[Ss][Cc][Rr][Ii][Pp][Tt]|<!--")
    message(FATAL_ERROR "${name} cannot stand inside a <script> element")
  endif()
  file(CONFIGURE OUTPUT ${report_assets}/${name} CONTENT "@text@" @ONLY)
endfunction()

# The text of one bundle.
function(report_bundle package file result)
  set(folder ${PROJECT_SOURCE_DIR}/node_modules/${package})
  if(NOT EXISTS ${folder}/build/${file})
    message(FATAL_ERROR "node_modules has no ${package}: run scripts/setup.sh")
  endif()
  file(READ ${folder}/build/${file} code)
  string(REGEX REPLACE "//# sourceMappingURL=[^\n]*" "" code "${code}")
  set(${result} "${code}" PARENT_SCOPE)
  set_property(DIRECTORY ${PROJECT_SOURCE_DIR} APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS ${folder}/build/${file})
endfunction()

report_bundle(vega vega.min.js vega)
report_bundle(vega-lite vega-lite.min.js vega_lite)

# The interpreter comes as a module only; the page's scripts are plain ones.
report_bundle(vega-interpreter vega-interpreter.js interpreter)
set(import "import { ascending, isString, DisallowedObjectProperties } from 'vega-util';")
set(export "export { expression as expressionInterpreter };")
foreach(line "${import}" "${export}")
  string(FIND "${interpreter}" "${line}" found)
  if(found EQUAL -1)
    message(FATAL_ERROR "vega-interpreter has changed: no line \"${line}\"")
  endif()
endforeach()
string(REPLACE "${import}" "const { ascending, isString, DisallowedObjectProperties } = vega;" interpreter
  "${interpreter}")
string(REPLACE "${export}" "globalThis.vegaInterpreter = { expressionInterpreter: expression };" interpreter
  "${interpreter}")

# More than half of a report would be this library: it is packed, and unpacked by the page that has charts.
report_write(library.js "${vega}\n;${vega_lite}\n;(() => {\n'use strict';\n${interpreter}\n})();\n")
find_program(NODE node REQUIRED)
set(packer "const { readFileSync, writeFileSync } = require('fs')
  const packed = require('zlib').gzipSync(readFileSync('library.js'), { level: 9 })
  writeFileSync('library.txt', packed.toString('base64'))")
execute_process(COMMAND ${NODE} -e "${packer}" WORKING_DIRECTORY ${report_assets} COMMAND_ERROR_IS_FATAL ANY)

# Their licences stand in the last part of THIRD_PARTY.md.
set(third_party ${PROJECT_SOURCE_DIR}/THIRD_PARTY.md)
set_property(DIRECTORY ${PROJECT_SOURCE_DIR} APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS ${third_party})
file(READ ${third_party} licences)
string(FIND "${licences}" "\n## Reports\n" at)
if(at EQUAL -1)
  message(FATAL_ERROR "THIRD_PARTY.md has no licences of reports: run scripts/third_party.py")
endif()
string(SUBSTRING "${licences}" ${at} -1 licences)
string(REGEX REPLACE "^\n## Reports\n+" "" licences "${licences}")
string(REGEX REPLACE "```\n?" "" licences "${licences}")
string(REPLACE "\n### " "\n" licences "\n${licences}")
string(REPLACE "&" "&amp;" licences "${licences}")
string(REPLACE "<" "&lt;" licences "${licences}")
report_write(licences.txt "${licences}")

set(page "")
foreach(part data axis library marks spec legend chart inspect points picture data_view save panel page)
  set(file ${CMAKE_CURRENT_LIST_DIR}/page/${part}.js)
  file(READ ${file} code)
  string(APPEND page "${code}\n")
  set_property(DIRECTORY ${PROJECT_SOURCE_DIR} APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS ${file})
endforeach()
report_write(page.js "(() => {\n'use strict';\n${page}})();\n")

# Browsers that do not know light-dark() get each colour twice.
set(sheet ${CMAKE_CURRENT_LIST_DIR}/page/page.css)
set_property(DIRECTORY ${PROJECT_SOURCE_DIR} APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS ${sheet})
file(READ ${sheet} style)
set(colour "light-dark\\((#[0-9a-f]+), (#[0-9a-f]+)\\)")
string(REGEX MATCHALL "--[a-z0-9-]+: ${colour}" colours "${style}")
list(JOIN colours "$<SEMICOLON> " colours)
string(REPLACE "$<SEMICOLON>" ";" colours "${colours}")
string(REGEX REPLACE "${colour}" "\\1" light "${colours}")
string(REGEX REPLACE "${colour}" "\\2" dark "${colours}")
string(REPLACE "/* COLOURS WITHOUT light-dark() */" "@supports not (color: light-dark(#000, #fff)) {
  :root { ${light}; }
  @media screen { :root[data-theme='dark'] { ${dark}; } }
  @media screen and (prefers-color-scheme: dark) { :root:not([data-theme='light']) { ${dark}; } }
}" style "${style}")
file(CONFIGURE OUTPUT ${report_assets}/page.css CONTENT "@style@" @ONLY)

set(policy_maker ${CMAKE_CURRENT_LIST_DIR}/content_policy.mjs)
set_property(DIRECTORY ${PROJECT_SOURCE_DIR} APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS ${policy_maker})
execute_process(COMMAND ${NODE} ${policy_maker} page.css library.js page.js
  WORKING_DIRECTORY ${report_assets} OUTPUT_VARIABLE policy COMMAND_ERROR_IS_FATAL ANY)
file(CONFIGURE OUTPUT ${report_assets}/policy.txt CONTENT "@policy@" @ONLY)

file(GLOB report_inputs ${report_assets}/*)
set_source_files_properties(${CMAKE_CURRENT_LIST_DIR}/assets.cpp PROPERTIES
  COMPILE_DEFINITIONS REPORT_ASSETS="${report_assets}" OBJECT_DEPENDS "${report_inputs}")
