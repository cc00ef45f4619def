// A host made for tests: hands a procedure what the test gives it, notes what it is asked for, and fails when told to.
//
// Every operation of host/ is counted; its n-th call fails when `failingCall` is n. Calls for one value, one case or
// one cell are counted only, the others are noted as OPERATION(ARGUMENTS), destructions as ~CLASS. Destructors never
// fail.

#pragma once

#include <cstddef>
#include <map>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace recording {

// What the user wrote for one parameter.
struct Value {
  std::vector<std::string> words = {};
  std::optional<double> number = {};
  bool isLiteral = false;
};

struct Column {
  std::string name;
  std::vector<double> numbers = {};
  std::vector<std::string> texts = {};
  int width = 0;  // of a text
  int level = 3;
};

struct DateVariable {
  int column;
  int unitCode;
  double predictThru;
};

class Host {
 public:
  Host();  // the one in use until it is destroyed
  Host(const Host&) = delete;
  Host& operator=(const Host&) = delete;
  ~Host();

  // Given. Dates are quarters: the first case is the first quarter of 1990, and case i has the label "T" i.
  std::map<std::string, std::map<std::string, Value>> command;  // subcommand, parameter
  int parserStatus = 0;
  std::vector<Column> columns;
  std::optional<std::size_t> withoutRecord;  // the case for which there is none
  std::optional<std::size_t> withoutValues;  // the case whose record carries none
  std::optional<int> recordSize;             // of every record, whatever it carries
  bool goesOnForEver = false;                // null records follow the last case
  bool isSplit = false;
  int weightColumn = -1;
  bool predictSet = false;
  bool predictIsDate = false;
  long predictCase = 0;
  std::vector<DateVariable> dateVariables;
  std::string refusedOperation;  // of the saved file: answers false, or null
  std::size_t failingCall = 0;   // counted from 1; 0: none
  bool throwsNumber = false;     // else a std::exception with the text "host"

  // Left by the procedure.
  std::vector<std::string> calls;
  std::vector<std::string> messages;  // "error: TEXT", "warning: TEXT"
  std::vector<std::vector<double>> savedCases;
  std::vector<std::string> living;               // objects not destroyed yet, in order of creation
  std::vector<std::string> destroyedOutOfOrder;  // objects that outlived a younger one's turn
  std::size_t callCount = 0;
  std::string failedOperation;
};

}  // namespace recording
