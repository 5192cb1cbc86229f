#pragma once

#include "Editor/Helpers/ImageLoader.h"

#include <QImage>

// The photo QUORVANE_BENCH_PHOTO names (bench/run prepares it), decoded once as the editor decodes it.
inline const QImage& benchPhoto()
{
    static const QImage image = [] {
        const ImageLoadResult loaded =
            loadImageFile(qEnvironmentVariable("QUORVANE_BENCH_PHOTO"), 100'000'000);
        if (!loaded.image)
            qFatal("cannot load the benchmark photo: %s", qPrintable(loaded.failure));
        return *loaded.image;
    }();
    return image;
}
