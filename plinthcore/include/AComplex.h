// AComplex<T>: the framework's complex number, the standard one.
#pragma once

#include <complex>

template <typename T> using AComplex = std::complex<T>;
