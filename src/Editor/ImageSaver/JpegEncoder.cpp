#include "JpegEncoder.h"

#include <QColor>

#include <algorithm>
#include <cmath>
#include <csetjmp>
#include <cstdio>
#include <vector>

// jpeglib.h expects size_t and FILE declared first.
#include <jpeglib.h>

namespace {

constexpr qsizetype kMaxSegmentBody = 65'533;
constexpr std::size_t kOutputBuffer = std::size_t(1) << 16;
// Rows fed to the encoder at a time: a multiple of the 16 rows of a 4:2:0 block.
constexpr int kBandRows = 64;

void silence(j_common_ptr, int) {}

bool greyTable(const QList<QRgb>& table)
{
    return std::all_of(table.cbegin(), table.cend(), [](QRgb c) { return qIsGray(c); });
}

// How the encoder reads a band: its bytes as they are, or a conversion of the band first. Each choice gives
// the bytes Qt's JPEG writer gives for the same image.
struct Input
{
    J_COLOR_SPACE space;
    int components;
    QImage::Format convertTo; // Format_Invalid: the band's own bytes
};

Input inputFor(const ImageBands::Shape& shape)
{
    switch (shape.format) {
    case QImage::Format_Grayscale8:
        return {JCS_GRAYSCALE, 1, QImage::Format_Invalid};
    case QImage::Format_Mono:
    case QImage::Format_MonoLSB:
    case QImage::Format_Indexed8:
        if (greyTable(shape.colorTable))
            return {JCS_GRAYSCALE, 1, QImage::Format_Grayscale8};
        return {JCS_EXT_BGRX, 4, QImage::Format_RGB32};
    case QImage::Format_RGB888:
        return {JCS_RGB, 3, QImage::Format_Invalid};
    case QImage::Format_RGB32:
    case QImage::Format_ARGB32:
    case QImage::Format_ARGB32_Premultiplied:
        // Qt writes the stored channels of these, premultiplied or not.
        return {QSysInfo::ByteOrder == QSysInfo::LittleEndian ? JCS_EXT_BGRX : JCS_EXT_XRGB, 4,
                QImage::Format_Invalid};
    case QImage::Format_RGBX8888:
        return {JCS_EXT_RGBX, 4, QImage::Format_Invalid};
    default:
        return {QSysInfo::ByteOrder == QSysInfo::LittleEndian ? JCS_EXT_BGRX : JCS_EXT_XRGB, 4,
                QImage::Format_RGB32};
    }
}

// The unit that states the density with the least rounding, as Qt's writer picks it.
void setDensity(jpeg_compress_struct& info, int dotsPerMeterX, int dotsPerMeterY)
{
    const auto off = [](double value) { return std::abs(value - std::round(value)); };
    const double inchOff = off(dotsPerMeterX * 2.54 / 100.) + off(dotsPerMeterY * 2.54 / 100.);
    const double centimetreOff = (off(dotsPerMeterX / 100.) + off(dotsPerMeterY / 100.)) * 2.54;
    if (inchOff < centimetreOff) {
        info.density_unit = 1;
        info.X_density = UINT16(std::lround(dotsPerMeterX * 2.54 / 100.));
        info.Y_density = UINT16(std::lround(dotsPerMeterY * 2.54 / 100.));
    } else {
        info.density_unit = 2;
        info.X_density = UINT16((dotsPerMeterX + 50) / 100);
        info.Y_density = UINT16((dotsPerMeterY + 50) / 100);
    }
}

// Everything the encoder may long-jump over is owned here, outside the frame it jumps from.
struct Session
{
    jpeg_compress_struct info{};
    jpeg_error_mgr errors{};
    std::jmp_buf jump{};
    jpeg_destination_mgr destination{};
    ByteSink* sink = nullptr;
    std::vector<JOCTET> buffer;
    bool sinkFailed = false;
    Input input{};
    std::vector<JSAMPROW> rows;
    QImage band;
    QByteArray segment;
};

Session& sessionOf(j_common_ptr info)
{
    return *static_cast<Session*>(info->client_data);
}

Session& sessionOf(j_compress_ptr info)
{
    return *static_cast<Session*>(info->client_data);
}

void startDestination(j_compress_ptr info)
{
    Session& s = sessionOf(info);
    s.destination.next_output_byte = s.buffer.data();
    s.destination.free_in_buffer = s.buffer.size();
}

boolean emptyDestination(j_compress_ptr info)
{
    Session& s = sessionOf(info);
    // The whole buffer, whatever free_in_buffer says: libjpeg's contract for this callback.
    if (!s.sink->write(reinterpret_cast<const char*>(s.buffer.data()), qsizetype(s.buffer.size())))
        s.sinkFailed = true;
    startDestination(info);
    return TRUE;
}

void finishDestination(j_compress_ptr info)
{
    Session& s = sessionOf(info);
    const auto used = s.buffer.size() - s.destination.free_in_buffer;
    if (!s.sink->write(reinterpret_cast<const char*>(s.buffer.data()), qsizetype(used)))
        s.sinkFailed = true;
}

[[noreturn]] void errorExit(j_common_ptr info)
{
    std::longjmp(sessionOf(info).jump, 1);
}

void writeMetadata(Session& s, QByteArrayView exif, QByteArrayView iccProfile)
{
    if (!exif.isEmpty() && exif.size() + 6 <= kMaxSegmentBody) {
        s.segment = QByteArray("Exif\0\0", 6);
        s.segment.append(exif);
        jpeg_write_marker(&s.info, JPEG_APP0 + 1, reinterpret_cast<const JOCTET*>(s.segment.constData()),
                          unsigned(s.segment.size()));
    }
    constexpr qsizetype kPiece = kMaxSegmentBody - 14;
    const qsizetype pieces = (iccProfile.size() + kPiece - 1) / kPiece;
    if (pieces > 255)
        return;
    for (qsizetype piece = 0; piece < pieces; ++piece) {
        s.segment = QByteArray("ICC_PROFILE\0", 12) + char(piece + 1) + char(pieces);
        s.segment.append(
            iccProfile.sliced(piece * kPiece, std::min(kPiece, iccProfile.size() - piece * kPiece)));
        jpeg_write_marker(&s.info, JPEG_APP0 + 2, reinterpret_cast<const JOCTET*>(s.segment.constData()),
                          unsigned(s.segment.size()));
    }
}

// Only trivially destroyed locals here: a long jump out of libjpeg skips destructors.
bool encode(Session& s, ImageBands& bands, int quality, QByteArrayView exif, QByteArrayView iccProfile)
{
    const ImageBands::Shape& shape = bands.shape();
    if (setjmp(s.jump) != 0)
        return false;
    s.info.image_width = JDIMENSION(shape.size.width());
    s.info.image_height = JDIMENSION(shape.size.height());
    s.info.input_components = s.input.components;
    s.info.in_color_space = s.input.space;
    jpeg_set_defaults(&s.info);
    setDensity(s.info, shape.dotsPerMeterX, shape.dotsPerMeterY);
    jpeg_set_quality(&s.info, std::clamp(quality, 0, 100), TRUE);
    jpeg_start_compress(&s.info, TRUE);
    writeMetadata(s, exif, iccProfile);
    for (int top = 0; top < shape.size.height(); top += kBandRows) {
        const int count = std::min(kBandRows, shape.size.height() - top);
        s.band = bands.band(top, count);
        if (!s.band.isNull() && s.input.convertTo != QImage::Format_Invalid)
            s.band = convertedBand(s.band, s.input.convertTo);
        if (s.band.isNull())
            return false;
        for (int y = 0; y < count; ++y)
            s.rows[size_t(y)] = const_cast<JSAMPROW>(s.band.constScanLine(y));
        for (int done = 0; done < count;)
            done += int(jpeg_write_scanlines(&s.info, s.rows.data() + done, JDIMENSION(count - done)));
        if (s.sinkFailed)
            return false;
    }
    jpeg_finish_compress(&s.info);
    return !s.sinkFailed;
}

} // namespace

bool writeJpeg(ImageBands& bands, int quality, QByteArrayView exif, QByteArrayView iccProfile, ByteSink& sink)
{
    const ImageBands::Shape& shape = bands.shape();
    if (shape.size.isEmpty() || shape.size.width() > JPEG_MAX_DIMENSION ||
        shape.size.height() > JPEG_MAX_DIMENSION)
        return false;
    Session s;
    s.input = inputFor(shape);
    s.rows.resize(kBandRows);
    s.sink = &sink;
    s.buffer.resize(kOutputBuffer);
    s.info.client_data = &s;
    s.info.err = jpeg_std_error(&s.errors);
    s.errors.error_exit = errorExit;
    s.errors.emit_message = silence;
    jpeg_create_compress(&s.info);
    s.destination.init_destination = startDestination;
    s.destination.empty_output_buffer = emptyDestination;
    s.destination.term_destination = finishDestination;
    s.info.dest = &s.destination;
    const bool written = encode(s, bands, quality, exif, iccProfile);
    jpeg_destroy_compress(&s.info);
    return written;
}
