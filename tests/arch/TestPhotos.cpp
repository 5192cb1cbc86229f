// Writes the photos that scripts/test-arm64 edits with the tool on both processors: the bundled photograph
// made smaller, as JPEG and as PNG in each pixel layout a PNG can hold (Qt reads each into a format of its
// own, with code of its own per processor), and a wide-gamut colour profile to embed.
#include "TestImages.h"

#include <QColorSpace>
#include <QCoreApplication>
#include <QDir>

#include <cstdio>

namespace {

// Transparent at the left edge, opaque at the right.
QImage withAlphaRamp(QImage image)
{
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            QColor pixel = image.pixelColor(x, y);
            pixel.setAlphaF(float(x) / float(image.width() - 1));
            image.setPixelColor(x, y, pixel);
        }
    }
    return image;
}

} // namespace

int main(int argc, char** argv)
{
    QCoreApplication application(argc, argv);
    if (argc != 2) {
        std::fprintf(stderr, "Usage: %s FOLDER\n", argv[0]);
        return 64;
    }
    const QDir folder(QString::fromLocal8Bit(argv[1]));
    if (!folder.mkpath(QStringLiteral("."))) {
        std::fprintf(stderr, "Cannot make %s\n", argv[1]);
        return 73;
    }
    const QImage photo = QImage(TestImages::photoPath())
                             .scaled(QSize(640, 480), Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
    if (photo.isNull()) {
        std::fprintf(stderr, "Cannot read %s\n", qPrintable(TestImages::photoPath()));
        return 66;
    }
    const struct
    {
        const char* name;
        QImage image;
        const char* format;
        int quality;
    } photos[] = {
        {"photo.jpg", photo, "jpeg", 92},
        {"photo.png", photo, "png", -1},
        {"rgba.png", withAlphaRamp(photo.convertToFormat(QImage::Format_ARGB32)), "png", -1},
        {"rgba16.png", withAlphaRamp(photo.convertToFormat(QImage::Format_RGBA64)), "png", -1},
        {"grey16.png", photo.convertToFormat(QImage::Format_Grayscale16), "png", -1},
        {"grey.png", photo.convertToFormat(QImage::Format_Grayscale8), "png", -1},
        {"palette.png", photo.convertToFormat(QImage::Format_Indexed8), "png", -1},
    };
    bool written = TestImages::writeFile(folder.filePath(QStringLiteral("p3.icc")),
                                         QColorSpace(QColorSpace::DisplayP3).iccProfile());
    for (const auto& each : photos) {
        written = written && TestImages::writeFile(folder.filePath(QString::fromLatin1(each.name)),
                                                   TestImages::encode(each.image, each.format, each.quality));
    }
    return written ? 0 : 73;
}
