// The submitted command: its tokens, the universal parser, and what it found. Conventions: edge.h.

#pragma once

#include <memory>
#include <string>
#include <vector>

#include "host/command_syntax.h"
#include "host/edge.h"

class VEXA_DataSource;

// The tokens of one command, in the order the user wrote them.
class HOST_API TokenSequenceBase {
 public:
  TokenSequenceBase(const TokenSequenceBase&) = delete;
  TokenSequenceBase& operator=(const TokenSequenceBase&) = delete;
  virtual ~TokenSequenceBase();

 protected:
  struct State;
  explicit TokenSequenceBase(std::unique_ptr<State> state);

 private:
  friend struct HostAccess;
  std::unique_ptr<State> state_;
};

// The tokens of the command that the session submitted.
class HOST_API VEXA_TokenSequence : public TokenSequenceBase {
 public:
  explicit VEXA_TokenSequence(bool flag);
  ~VEXA_TokenSequence() override;
};

// A variable name as the user wrote it in a variable list (ranges come expanded, in dictionary order).
struct VexaVarName {
  std::string name;
};

// One parameter that the user gave. Readers return false when the value cannot be read in that form.
class HOST_API ParamObj {
 public:
  ParamObj();
  ParamObj(ParamObj&&) noexcept;
  ParamObj& operator=(ParamObj&&) noexcept;
  ~ParamObj();

  bool getVarList(std::vector<VexaVarName>& names) const;
  bool getStringList(std::vector<std::string>& texts) const;  // keywords in the descriptor's spelling
  bool getIntegerValue(int& value) const;                     // false for a number with a fraction
  bool getNumberValue(double& value) const;
  bool getNumberList(std::vector<double>& values) const;  // in the order written; one number is a list of one
  bool getUpStringGeneric(std::string& text) const;       // upper-cased
  bool getStringOrLiteral(std::string& text, bool& isLiteral) const;  // isLiteral: the text stood in quotes

 private:
  friend struct HostAccess;
  struct State;
  std::unique_ptr<State> state_;
};

// One subcommand that the user gave.
class HOST_API SubComObj {
 public:
  SubComObj();
  SubComObj(SubComObj&&) noexcept;
  SubComObj& operator=(SubComObj&&) noexcept;
  ~SubComObj();

  const ParamObj* getParamObj(const std::string& name) const;  // null when absent

 private:
  friend struct HostAccess;
  struct State;
  std::unique_ptr<State> state_;
};

// The parse result; empty until a parser fills it.
class HOST_API CommandSpec {
 public:
  CommandSpec();
  CommandSpec(const CommandSpec&) = delete;
  CommandSpec& operator=(const CommandSpec&) = delete;
  ~CommandSpec();

  const SubComObj* getSubComObj(const std::string& name) const;  // null when absent; "" is the global part

 private:
  friend struct HostAccess;
  struct State;
  std::unique_ptr<State> state_;
};

// Checks the tokens against a command's description and fills the parse result.
class HOST_API UniversalParser {
 public:
  UniversalParser(TokenSequenceBase& tokens, CommandSpec& result, const CommandDescriptor& description);
  UniversalParser(const UniversalParser&) = delete;
  UniversalParser& operator=(const UniversalParser&) = delete;
  ~UniversalParser();

  // 0 when the command is valid; otherwise the host has told the user what is wrong and where.
  int getCommandSpecifications();

 private:
  friend struct HostAccess;
  struct State;
  std::unique_ptr<State> state_;
};

// Validates a variable list against the dataset's dictionary and reports what cannot be used.
class HOST_API VarSpecObj {
 public:
  VarSpecObj(const std::string& parameterName, const std::string& subcommandName, const CommandDescriptor& description,
             VEXA_DataSource* dataSource, bool flag);
  VarSpecObj(const VarSpecObj&) = delete;
  VarSpecObj& operator=(const VarSpecObj&) = delete;
  ~VarSpecObj();

  bool ValidateVariables(const std::vector<VexaVarName>& names, int option);  // false when a variable was refused
  const std::vector<int>& GetValidVarList() const;                            // dictionary indexes, in list order

 private:
  friend struct HostAccess;
  struct State;
  std::unique_ptr<State> state_;
};
