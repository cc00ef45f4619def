// Numbers inside display texts, the same in every locale.

#pragma once

#include <string>

namespace procedures {

// The shortest decimal text that reads back as the same number: 95, 97.5.
std::string shortestNumber(double value);

// Six decimals, as printf writes "%f" in the C locale.
std::string sixDecimals(double value);

// A confidence level in percent as it stands in column labels: 95%, 97.5%.
std::string confidenceLevelText(double percent);

}  // namespace procedures
