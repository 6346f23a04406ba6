#pragma once

// Pictures as PNG files: lossless, and small where large parts are of one colour, as in photographs of windows.

#include <cstdint>
#include <span>
#include <vector>

namespace framework {

/// An opaque PNG of `width` x `height` pixels, 0x00RRGGBB each, row by row from the top. Both extents are at least 1
/// and `pixels` holds at least width * height.
std::vector<std::uint8_t> EncodePng(int width, int height, std::span<const std::uint32_t> pixels);

} // namespace framework
