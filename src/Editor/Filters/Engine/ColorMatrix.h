#pragma once

#include <array>

/// A 4×4 colour matrix, row by row: element (row r, column c) is at 4·r + c. A colour is multiplied as a row
/// vector, so the fourth row is an offset weighted by alpha (see colorMatrixKernel.comp).
using ColorMatrix = std::array<float, 16>;

// Every product and sum is a single-precision rounding of its own, in the order written: the file is built
// without contraction into fused multiply-adds.

/// Red rises and blue falls by \a intensity.
ColorMatrix warmMatrix(float intensity = 0.1f);
/// Adds \a lum, weighted by alpha, to red, green and blue.
ColorMatrix luminosityMatrix(float lum);
/// Mixes each colour channel with the Rec. 709 luma: 1 is the identity, 0 a grey image.
ColorMatrix saturate(float sat);
/// Multiplies the colour channels by 2 to the power \a exposure.
ColorMatrix exposureMatrix(float exposure);
/// Positive values raise red and lower green, negative ones the opposite; beyond ±1 nothing changes.
ColorMatrix tintMatrix(float intensity);
/// The product matrix1 · matrix2.
ColorMatrix concat(const ColorMatrix& matrix1, const ColorMatrix& matrix2);
/// Whether every element is a finite number: a large exposure overflows to infinity, and infinity times the
/// zeros of a product to NaN.
bool isFinite(const ColorMatrix& matrix);

/// Whether every output of \a matrix stays finite in float for any pixel (channels 0 to 255): false for a
/// matrix holding NaN or infinity, and for one whose products or sums overflow, where +inf and -inf would
/// meet as NaN. The engines refuse such a matrix rather than give an arbitrary answer.
bool staysFinite(const ColorMatrix& matrix);
/// warm · saturation · luminosity · exposure · tint. The parameters are deliberately in another order.
ColorMatrix testMatrix(float intensity, float luminosity, float exposure, float saturation, float tint);
