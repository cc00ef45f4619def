// The numbers that cross the edge, each with its name: a procedure passes them, a host reads them. Conventions: edge.h.

#pragma once

#include "host/command_syntax.h"

namespace codes {

// Kinds of parameter.
inline constexpr UPSpecTypes::ParamSpec kKeyword{3};
inline constexpr UPSpecTypes::ParamSpec kOptionalName{4};
inline constexpr UPSpecTypes::ParamSpec kKeywordList{5};
inline constexpr UPSpecTypes::ParamSpec kNumber{7};
inline constexpr UPSpecTypes::ParamSpec kNumberList{8};
inline constexpr UPSpecTypes::ParamSpec kVariableList{16};
inline constexpr UPSpecTypes::ParamSpec kFileName{23};

// The rest of a syntax description. A bound is inclusive, whichever of its two kinds.
inline constexpr UPSpecTypes::SubComSpec kSubcommand{1};
inline constexpr UPSpecTypes::ParamSpec kExportedParameters{2};
inline constexpr UPSpecTypes::BracketOptions kNoBrackets{0};
inline constexpr UPSpecTypes::BracketOptions kSquareBrackets{3};
inline constexpr UPSpecTypes::QualifOptions kUnqualified{0};
inline constexpr UPSpecTypes::LowerBdryOptions kLowerBoundOfFirstKind{1};
inline constexpr UPSpecTypes::LowerBdryOptions kLowerBoundOfSecondKind{2};
inline constexpr UPSpecTypes::UpperBdryOptions kUpperBoundOfSecondKind{2};
inline constexpr int kPlainValidation = 0;  // VarSpecObj::ValidateVariables

// Variables.
inline constexpr int kNumericVariable = 0;  // a string variable's type is its width
inline constexpr int kNominalLevel = 1;
inline constexpr int kOrdinalLevel = 2;
inline constexpr int kScaleLevel = 3;
inline constexpr int kNumericFormat = 5;  // of a variable and of a table's cells
inline constexpr int kNoWeight = -1;      // ProcedureDataSource::GetWeightVarIndex

// Time units, coarsest first.
inline constexpr int kYear = 2;
inline constexpr int kQuarter = 3;
inline constexpr int kMonth = 4;
inline constexpr int kWeek = 5;
inline constexpr int kDay = 6;
inline constexpr int kHour = 7;
inline constexpr int kMinute = 8;
inline constexpr int kSecond = 9;
inline constexpr int kObservation = 10;

inline constexpr int kStatisticalProcedure = 10;  // BpProcedure
inline constexpr int kDisplayTextPath = 3;        // PathFactory

}  // namespace codes
