#include "ImageBands.h"

#include "Editor/Helpers/ImageHelpers.h"

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
    return ImageHelpers::straightAlike(band.convertToFormat(band.depth() > 32
                                                                ? QImage::Format_RGBA64_Premultiplied
                                                                : QImage::Format_ARGB32_Premultiplied))
        .convertToFormat(format);
}
