// Encoding with libpng; the file appears under its name when it is complete.
#include <host/picture/png_writer.h>

#include <png.h>

#include <cerrno>
#include <cstdio>
#include <cstring>

namespace kvhost {

bool WritePng(const std::string& path, const Picture& picture, std::string& error) {
    std::vector<png_byte> rows;
    rows.reserve(picture.pixels.size() * 3);
    for (const std::uint32_t pixel : picture.pixels) {
        for (const int shift : {16, 8, 0}) rows.push_back(static_cast<png_byte>(pixel >> shift));
    }
    png_image image{};
    image.version = PNG_IMAGE_VERSION;
    image.width = static_cast<png_uint_32>(picture.width);
    image.height = static_cast<png_uint_32>(picture.height);
    image.format = PNG_FORMAT_RGB;
    const std::string unfinished = path + ".part";
    std::FILE* file = std::fopen(unfinished.c_str(), "wb");
    if (file == nullptr) {
        error = path + ": " + std::strerror(errno);
        return false;
    }
    bool written = png_image_write_to_stdio(&image, file, 0, rows.data(), 0, nullptr) != 0;
    if (!written) error = path + ": " + image.message;
    if (std::fclose(file) != 0 && written) {
        error = path + ": " + std::strerror(errno);
        written = false;
    }
    if (written && std::rename(unfinished.c_str(), path.c_str()) != 0) {
        error = path + ": " + std::strerror(errno);
        written = false;
    }
    if (!written) std::remove(unfinished.c_str());
    return written;
}

}  // namespace kvhost
