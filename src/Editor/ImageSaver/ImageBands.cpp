#include "ImageBands.h"

#include <QRgba64>

WholeImageBands::WholeImageBands(const QImage& image)
    : ImageBands({image.size(), image.format(), image.dotsPerMeterX(), image.dotsPerMeterY(),
                  image.colorSpace(), image.colorTable()})
    , m_image(image)
{}

QImage WholeImageBands::band(int top, int rows)
{
    if (top < 0 || rows < 1 || top + rows > m_image.height())
        return {};
    QImage view(m_image.constScanLine(top), m_image.width(), rows, m_image.bytesPerLine(), m_image.format());
    if (m_image.colorCount() > 0)
        view.setColorTable(m_image.colorTable());
    return view;
}

QImage convertedBand(const QImage& band, QImage::Format format)
{
    if (band.isNull() || band.format() == format ||
        band.pixelFormat().premultiplied() != QPixelFormat::Premultiplied ||
        QImage::toPixelFormat(format).premultiplied() == QPixelFormat::Premultiplied)
        return band.convertToFormat(format);
    const bool deep = band.depth() > 32;
    QImage straight = band.convertToFormat(deep ? QImage::Format_RGBA64_Premultiplied
                                                : QImage::Format_ARGB32_Premultiplied);
    if (straight.isNull())
        return {};
    for (int y = 0; y < straight.height(); ++y) {
        if (deep) {
            auto* row = reinterpret_cast<QRgba64*>(straight.scanLine(y));
            for (int x = 0; x < straight.width(); ++x)
                row[x] = qUnpremultiply(row[x]);
        } else {
            auto* row = reinterpret_cast<QRgb*>(straight.scanLine(y));
            for (int x = 0; x < straight.width(); ++x)
                row[x] = qUnpremultiply(row[x]);
        }
    }
    if (!straight.reinterpretAsFormat(deep ? QImage::Format_RGBA64 : QImage::Format_ARGB32))
        return {};
    return straight.convertToFormat(format);
}
