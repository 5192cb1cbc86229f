#pragma once

#include <QColorSpace>
#include <QImage>

/// A picture handed to an encoder a band of rows at a time, top to bottom, so that neither the picture nor
/// its file need be whole in memory at once.
class ImageBands
{
public:
    struct Shape
    {
        QSize size;
        /// The format of every band.
        QImage::Format format = QImage::Format_Invalid;
        int dotsPerMeterX = 0;
        int dotsPerMeterY = 0;
        QColorSpace colorSpace;
        /// The colours of an indexed format's bands.
        QList<QRgb> colorTable;
    };

    explicit ImageBands(Shape shape)
        : m_shape(std::move(shape))
    {}
    virtual ~ImageBands() = default;
    Q_DISABLE_COPY_MOVE(ImageBands)

    const Shape& shape() const { return m_shape; }

    /// Rows [top, top + rows) in the shape's format, valid until the next call; null when they cannot be
    /// made. Bands may be asked for more than once.
    virtual QImage band(int top, int rows) = 0;

private:
    Shape m_shape;
};

/// The bands of an image that is already whole: views of its rows, no copies.
class WholeImageBands final : public ImageBands
{
public:
    explicit WholeImageBands(const QImage& image);
    QImage band(int top, int rows) override;

private:
    QImage m_image;
};

/// \a band in \a format, as QImage::convertToFormat() makes it, except that premultiplied pixels are made
/// straight here: Qt's vector code rounds that differently on x86-64 and on ARM.
QImage convertedBand(const QImage& band, QImage::Format format);
