#pragma once

#include <complex>
#include <vector>

namespace demo {

using Complex = std::complex<float>;

/// Replaces a square spectrum by its field, without a factor; `side` is a power of two.
void InverseFourier(std::vector<Complex>& field, int side);

}  // namespace demo
