#include "Fourier.h"

#include <cmath>
#include <cstddef>
#include <utility>

namespace demo {

namespace {

/// The transform of Cooley and Tukey on every `stride`-th value from `first`.
void Transform(Complex* first, std::size_t count, std::size_t stride,
               const std::vector<Complex>& turns) {
  for (std::size_t i = 1, j = 0; i < count; ++i) {
    std::size_t bit = count >> 1U;
    for (; (j & bit) != 0; bit >>= 1U) {
      j ^= bit;
    }
    j ^= bit;
    if (i < j) {
      std::swap(first[i * stride], first[j * stride]);
    }
  }
  for (std::size_t half = 1; half < count; half *= 2) {
    const std::size_t step = count / (2 * half);
    for (std::size_t block = 0; block < count; block += 2 * half) {
      for (std::size_t i = 0; i < half; ++i) {
        Complex& low = first[(block + i) * stride];
        Complex& high = first[(block + i + half) * stride];
        const Complex turn = turns[i * step];
        const Complex part{high.real() * turn.real() - high.imag() * turn.imag(),
                           high.real() * turn.imag() + high.imag() * turn.real()};
        high = low - part;
        low += part;
      }
    }
  }
}

}  // namespace

void InverseFourier(std::vector<Complex>& field, int side) {
  const auto count = static_cast<std::size_t>(side);
  std::vector<Complex> turns(count / 2);
  for (std::size_t i = 0; i < turns.size(); ++i) {
    const double angle = 2.0 * 3.14159265358979 * static_cast<double>(i) / side;
    turns[i] = {static_cast<float>(std::cos(angle)), static_cast<float>(std::sin(angle))};
  }
  for (std::size_t row = 0; row < count; ++row) {
    Transform(field.data() + row * count, count, 1, turns);
  }
  for (std::size_t column = 0; column < count; ++column) {
    Transform(field.data() + column, count, count, turns);
  }
}

}  // namespace demo
