// Statements of the chart language that several charts write.

#pragma once

#include <string>

namespace vardynamics {

inline std::string axisGuide(int dimension, const std::string& label) {
  return "GUIDE: axis(dim(" + std::to_string(dimension) + "),label(\"" + label + "\"))";
}

// The area between two columns over a third.
inline std::string bandElement(const std::string& place, const std::string& low, const std::string& high,
                               const std::string& label) {
  return "ELEMENT: band(position(" + place + "*" + low + "*" + high + "), color.interior(color.blue), label(\"" +
         label + "\"))";
}

}  // namespace vardynamics
