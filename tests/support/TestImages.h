#pragma once

#include <QByteArray>
#include <QColor>
#include <QImage>
#include <QString>

namespace TestImages {

/// Red, green, blue and white quarters (top-left, top-right, bottom-left, bottom-right): every turn and
/// mirror of it looks different.
QImage quadrants(QSize size);

/// Random pixels, opaque unless asked: no shortcut in a filter, turn or compressor can pass for the real
/// thing. \a noise16 draws all 16 bits of every sample, so that a copy through 8 bits shows.
QImage noise(QSize size, QImage::Format format, bool opaque = true);
QImage noise16(QSize size, QImage::Format format);

/// Whether two colours differ by at most \a tolerance in every channel.
bool near(QColor a, QColor b, int tolerance);

/// Whether the four quarters of \a actual have the colours of \a expected's, within \a tolerance.
bool quartersMatch(const QImage& actual, const QImage& expected, int tolerance);

QByteArray encode(const QImage& image, const char* format, int quality = -1);

/// \a jpeg with an application segment of type \a marker (0xE1 EXIF, 0xE2 ICC) holding \a body.
QByteArray withJpegSegment(const QByteArray& jpeg, char marker, const QByteArray& body);

/// \a jpeg with an EXIF block whose orientation tag is \a orientation (1-8).
QByteArray withExifOrientation(const QByteArray& jpeg, int orientation);

/// A PNG chunk: length, type, \a body and checksum.
QByteArray pngChunk(const char* type, const QByteArray& body);

/// How a viewer shows a stored image tagged with EXIF \a orientation: a plain pixel-by-pixel reference.
QImage displayed(const QImage& stored, int orientation);

/// The orientation whose display undoes \a orientation's.
int inverseOrientation(int orientation);

/// A well-formed PNG header that declares \a width × \a height pixels but carries almost no data.
QByteArray pngDeclaring(quint32 width, quint32 height);

/// A small real JPEG whose frame header is patched to declare \a width × \a height pixels.
QByteArray jpegDeclaring(quint16 width, quint16 height);

/// A 48-byte MNG: its signature and a header declaring a \a width × \a height frame, nothing else.
QByteArray mngDeclaring(quint32 width, quint32 height);

/// A GIF whose logical screen is \a width × \a height pixels, holding one frame of one pixel.
QByteArray gifDeclaring(quint16 width, quint16 height);

/// A Windows icon (format "ico") or an Apple icon (format "icns") holding \a png as its one picture.
QByteArray iconHolding(const char* format, const QByteArray& png);

/// Writes \a bytes to \a path; fails the calling test on error.
bool writeFile(const QString& path, const QByteArray& bytes);

/// The bytes of the file at \a path; none when it cannot be read.
QByteArray readFile(const QString& path);

/// The bundled real photograph (4224×3168 JPEG).
QString photoPath();

} // namespace TestImages
