#pragma once

#include <cstddef>

// The loop behind every array conversion of a coordinate pair: point i of
// the two input arrays goes through convert(a, b, &out1[i], &out2[i]), the
// same per-point step the single-point call makes. Both inputs of a point are
// read before its outputs are written, so an output array may be either
// input array and a mesh can be converted in place. A null array or a count
// of 0 does nothing.
template <class Convert>
void GxConvertPointArrays(const double* in1, const double* in2, double* out1, double* out2,
                          std::size_t count, Convert&& convert) {
    if (!in1 || !in2 || !out1 || !out2) return;
    for (std::size_t i = 0; i < count; ++i) {
        const double a = in1[i];
        const double b = in2[i];
        convert(a, b, out1 + i, out2 + i);
    }
}
