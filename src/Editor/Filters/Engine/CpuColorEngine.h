#pragma once

#include "ColorMatrix.h"

#include <QImage>

/// The colour engine where no GPU can run it, and the GPU's reference: each pixel's bytes (R, G, B, A as
/// the premultiplied bytes they are) times \a matrix as a row vector, clamped to 0…255 and rounded, exactly
/// what the kernel writes to its 8-bit texture. The result has the bitmap's pixel size at scale 1, in
/// Format_RGBA8888_Premultiplied; null for a null image or when it cannot be allocated.
QImage applyColorMatrixOnCpu(const QImage& image, const ColorMatrix& matrix);

/// applyColorMatrixOnCpu() into \a out, an image of the same size in Format_RGBA8888_Premultiplied that may
/// be reused from call to call; false when \a out does not fit or a conversion fails.
bool applyColorMatrixOnCpu(const QImage& image, const ColorMatrix& matrix, QImage& out);
