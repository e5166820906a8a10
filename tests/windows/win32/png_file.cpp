#include "png_file.h"

#include <array>
#include <cstdint>
#include <filesystem>
#include <fstream>
#include <string_view>
#include <vector>

#include "support/build_paths.h"
#include "win/gdi.h"

namespace telvar::win32 {

namespace {

void addNumber(std::string& out, std::uint32_t number) {
    for (unsigned shift = 32; shift > 0; shift -= 8) {
        out += static_cast<char>((number >> (shift - 8)) & 0xFFU);
    }
}

std::uint32_t crcOf(std::string_view bytes) {
    std::uint32_t crc = 0xFFFFFFFFU;
    for (const char byte : bytes) {
        crc ^= static_cast<unsigned char>(byte);
        for (int bit = 0; bit < 8; ++bit) {
            crc = (crc >> 1U) ^ ((crc & 1U) != 0 ? 0xEDB88320U : 0U);
        }
    }
    return ~crc;
}

void addChunk(std::string& out, std::string_view kind, std::string_view content) {
    addNumber(out, static_cast<std::uint32_t>(content.size()));
    const std::string body = std::string(kind) + std::string(content);
    out += body;
    addNumber(out, crcOf(body));
}

// Wrapped as compressed data is, without being compressed.
std::string stored(std::string_view bytes) {
    constexpr std::size_t largest = 0xFFFF;
    std::string out = "\x78\x01";
    for (std::size_t at = 0; at < bytes.size(); at += largest) {
        const std::string_view block = bytes.substr(at, largest);
        const auto length = static_cast<unsigned>(block.size());
        out += static_cast<char>(at + largest >= bytes.size() ? 1 : 0);
        for (const unsigned part : {length, length >> 8U, ~length, ~length >> 8U}) {
            out += static_cast<char>(part & 0xFFU);
        }
        out += block;
    }
    std::uint32_t low = 1;
    std::uint32_t high = 0;
    for (const char byte : bytes) {
        low = (low + static_cast<unsigned char>(byte)) % 65521U;
        high = (high + low) % 65521U;
    }
    addNumber(out, (high << 16U) | low);
    return out;
}

// Rows of red, green and blue, each row after a zero that says: as it is.
std::string pixelRows(const RECT& at) {
    const int width = at.right - at.left;
    const int height = at.bottom - at.top;
    const win::WindowContext screen(nullptr);
    const win::MemoryContext memory(screen.get());
    const win::Bitmap bitmap(CreateCompatibleBitmap(screen.get(), width, height));
    {
        const win::Selected selected(memory.get(), bitmap.get());
        BitBlt(memory.get(), 0, 0, width, height, screen.get(), at.left, at.top, SRCCOPY);
    }
    BITMAPINFO info{};
    info.bmiHeader.biSize = sizeof info.bmiHeader;
    info.bmiHeader.biWidth = width;
    info.bmiHeader.biHeight = -height;
    info.bmiHeader.biPlanes = 1;
    info.bmiHeader.biBitCount = 32;
    std::vector<std::uint32_t> pixels(static_cast<std::size_t>(width) * static_cast<std::size_t>(height));
    GetDIBits(screen.get(), bitmap.get(), 0, static_cast<UINT>(height), pixels.data(), &info, DIB_RGB_COLORS);
    std::string rows;
    for (std::size_t index = 0; index < pixels.size(); ++index) {
        if (index % static_cast<std::size_t>(width) == 0) {
            rows += '\0';
        }
        for (const unsigned shift : {16U, 8U, 0U}) {
            rows += static_cast<char>((pixels[index] >> shift) & 0xFFU);
        }
    }
    return rows;
}

}  // namespace

std::string savePicture(HWND window, const std::string& name) {
    RECT at{};
    GetWindowRect(window, &at);
    std::string header;
    addNumber(header, static_cast<std::uint32_t>(at.right - at.left));
    addNumber(header, static_cast<std::uint32_t>(at.bottom - at.top));
    header += std::string("\x08\x02\0\0\0", 5);  // eight bits each of red, green and blue
    std::string file = "\x89PNG\r\n\x1A\n";
    addChunk(file, "IHDR", header);
    addChunk(file, "IDAT", stored(pixelRows(at)));
    addChunk(file, "IEND", "");

    const std::filesystem::path folder = std::filesystem::path(TELVAR_BIN_DIR).parent_path() / "pictures";
    std::filesystem::create_directories(folder);
    const std::string path = (folder / (name + ".png")).string();
    std::ofstream(path, std::ios::binary) << file;
    return path;
}

}  // namespace telvar::win32
