// How a procedure describes its command to the host's universal parser. Conventions: edge.h.

#pragma once

#include <memory>
#include <string>

#include "host/edge.h"

// The enumerations belong to the host; a procedure passes their integer values.
namespace UPSpecTypes {
enum SubComSpec : int {};
enum ParamSpec : int {};
enum BracketOptions : int {};
enum QualifOptions : int {};
enum LowerBdryOptions : int {};
enum UpperBdryOptions : int {};
}  // namespace UPSpecTypes

// One parameter: its kind, its keyword list or its bounds.
class HOST_API ParamDescriptor {
 public:
  ParamDescriptor(std::string name, UPSpecTypes::ParamSpec spec, bool flag1, bool flag2,
                  UPSpecTypes::BracketOptions brackets);
  ParamDescriptor(const ParamDescriptor& other);
  ParamDescriptor& operator=(const ParamDescriptor& other);
  ~ParamDescriptor();

  void setQualifOption(UPSpecTypes::QualifOptions option);
  void addStringValue(const std::string& keyword);
  void setLowerBoundary(double bound, UPSpecTypes::LowerBdryOptions option);
  void setUpperBoundary(double bound, UPSpecTypes::UpperBdryOptions option);

 private:
  friend struct HostAccess;
  struct State;
  std::unique_ptr<State> state_;
};

// One subcommand and its parameters; the empty name is the command's global part.
class HOST_API SubComDescriptor {
 public:
  SubComDescriptor(std::string name, UPSpecTypes::SubComSpec spec, bool flag1, bool flag2);
  SubComDescriptor(const SubComDescriptor& other);
  SubComDescriptor& operator=(const SubComDescriptor& other);
  ~SubComDescriptor();

  void setExportParamDesc(UPSpecTypes::ParamSpec spec, bool flag);
  void addParamDesc(const ParamDescriptor& parameter);  // copies

 private:
  friend struct HostAccess;
  struct State;
  std::unique_ptr<State> state_;
};

class HOST_API CommandDescriptor {
 public:
  explicit CommandDescriptor(const std::string& commandName);
  CommandDescriptor(const CommandDescriptor&) = delete;
  CommandDescriptor& operator=(const CommandDescriptor&) = delete;
  ~CommandDescriptor();

  void addSubComDesc(const SubComDescriptor& subcommand);  // copies

 private:
  friend struct HostAccess;
  struct State;
  std::unique_ptr<State> state_;
};
