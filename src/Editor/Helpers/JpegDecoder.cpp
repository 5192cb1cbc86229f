#include "JpegDecoder.h"

#include "ImageHelpers.h"

#include <csetjmp>
#include <cstdio>

// jpeglib.h expects size_t and FILE declared first.
#include <jpeglib.h>

namespace {

// Everything a long jump out of libjpeg may skip lives here, outside the frame it jumps from.
struct Decoder
{
    jpeg_decompress_struct info{};
    jpeg_error_mgr errors{};
    std::jmp_buf jump{};
    QImage image;
};

[[noreturn]] void errorExit(j_common_ptr info)
{
    std::longjmp(static_cast<Decoder*>(info->client_data)->jump, 1);
}

// A damaged stretch is skipped with a warning, as Qt's reader skips it; the loader has already refused a
// truncated file.
void silence(j_common_ptr, int) {}

// Only trivially destroyed locals here: a long jump out of libjpeg skips destructors.
bool decode(Decoder& d, QByteArrayView bytes)
{
    if (setjmp(d.jump) != 0)
        return false;
    jpeg_mem_src(&d.info, reinterpret_cast<const unsigned char*>(bytes.data()),
                 static_cast<unsigned long>(bytes.size()));
    if (jpeg_read_header(&d.info, TRUE) != JPEG_HEADER_OK)
        return false;
    const bool grey = d.info.num_components == 1 && d.info.jpeg_color_space == JCS_GRAYSCALE;
    const bool colour = d.info.num_components == 3 &&
                        (d.info.jpeg_color_space == JCS_YCbCr || d.info.jpeg_color_space == JCS_RGB);
    if (!grey && !colour)
        return false;
    d.info.out_color_space = grey ? JCS_GRAYSCALE : JCS_RGB;
    jpeg_start_decompress(&d.info);
    d.image = ImageHelpers::newImage(QSize(int(d.info.output_width), int(d.info.output_height)),
                                     grey ? QImage::Format_Grayscale8 : QImage::Format_RGB888);
    if (d.image.isNull())
        return false;
    while (d.info.output_scanline < d.info.output_height) {
        JSAMPROW row = d.image.scanLine(int(d.info.output_scanline));
        if (jpeg_read_scanlines(&d.info, &row, 1) != 1)
            return false;
    }
    jpeg_finish_decompress(&d.info);
    // As Qt's reader states it: truncated, not rounded.
    if (d.info.density_unit == 1) {
        d.image.setDotsPerMeterX(int(100. * d.info.X_density / 2.54));
        d.image.setDotsPerMeterY(int(100. * d.info.Y_density / 2.54));
    } else if (d.info.density_unit == 2) {
        d.image.setDotsPerMeterX(int(100. * d.info.X_density));
        d.image.setDotsPerMeterY(int(100. * d.info.Y_density));
    }
    return true;
}

} // namespace

QImage decodedJpeg(QByteArrayView bytes)
{
    Decoder d;
    d.info.client_data = &d;
    d.info.err = jpeg_std_error(&d.errors);
    d.errors.error_exit = errorExit;
    d.errors.emit_message = silence;
    jpeg_create_decompress(&d.info);
    const bool decoded = decode(d, bytes);
    jpeg_destroy_decompress(&d.info);
    return decoded ? d.image : QImage();
}
