#include "analysis/significance.h"

#include <cmath>

namespace wordtally {
namespace {

// Solves erfc(y) = p for y >= 0 by Newton's method on log erfc, which stays well scaled for the
// tiny p that a Bonferroni correction over many words gives.
double InverseErfc(double p) {
  const double target = std::log(p);
  double y = p < 0.5 ? std::sqrt(-std::log(p)) : 0.5;  // erfc(y) ~ e^(-y^2) for large y
  for (int i = 0; i < 100; ++i) {
    const double value = std::erfc(y);
    // d/dy ln erfc(y) = -2/sqrt(pi) e^(-y^2) / erfc(y)
    const double slope = -2.0 / std::sqrt(M_PI) * std::exp(-y * y) / value;
    const double step = (std::log(value) - target) / slope;
    y -= step;
    if (std::abs(step) < 1e-15 * std::max(1.0, y)) break;
  }
  return y;
}

}  // namespace

double ChiSquareCriticalValue(double p) {
  const double y = InverseErfc(p);
  return 2.0 * y * y;
}

double BonferroniCriticalValue(double p, int64_t comparisons) {
  return ChiSquareCriticalValue(p / static_cast<double>(comparisons < 1 ? 1 : comparisons));
}

}  // namespace wordtally
