#pragma once

#include <complex>
#include <vector>

namespace demo {

using Complex = std::complex<float>;

/// Turns a square spectrum into the field it stands for, in place and without a factor; `side` is a
/// power of two.
void InverseFourier(std::vector<Complex>& field, int side);

}  // namespace demo
