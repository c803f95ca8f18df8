// Scales pictures, a part at a time: smooth when they grow, an average of what a pixel covers when
// they shrink.
#include "scaled_picture.h"

#include <algorithm>
#include <cmath>
#include <cstddef>

namespace host
{

namespace
{

const int kUnit = 256; // the sum of a span's weights
const int kChannels = 3;

// The pixels that one scaled pixel is made from, along one axis.
struct Span {
    int from;
    std::vector<int> weights;
};

Span spanOf(int pixel, int scaledPixels, int pixels)
{
    const double step = static_cast<double>(pixels) / scaledPixels;
    const double centre = (pixel + 0.5) * step - 0.5;
    const double reach = std::max(1.0, step);
    const int first = static_cast<int>(std::floor(centre - reach)) + 1;
    const int last = static_cast<int>(std::ceil(centre + reach)) - 1;

    Span span = {std::clamp(first, 0, pixels - 1), {}};
    const int to = std::clamp(last, 0, pixels - 1);
    std::vector<double> shares(static_cast<size_t>(to - span.from + 1), 0);
    double sum = 0;
    for (int i = first; i <= last; ++i) {
        const double share = 1 - std::abs(i - centre) / reach;
        shares[static_cast<size_t>(std::clamp(i, span.from, to) - span.from)] += share;
        sum += share;
    }
    int rest = kUnit;
    for (const double share : shares) {
        span.weights.push_back(static_cast<int>(share / sum * kUnit));
        rest -= span.weights.back();
    }
    *std::max_element(span.weights.begin(), span.weights.end()) += rest;
    return span;
}

std::vector<Span> spansOf(int from, int count, int scaledPixels, int pixels)
{
    std::vector<Span> spans;
    spans.reserve(static_cast<size_t>(count));
    for (int i = 0; i < count; ++i)
        spans.push_back(spanOf(from + i, scaledPixels, pixels));
    return spans;
}

struct Range {
    int from, count;
};

Range rangeOf(int from, int count, int scaledPixels, int pixels)
{
    const Span first = spanOf(from, scaledPixels, pixels);
    const Span last = spanOf(from + count - 1, scaledPixels, pixels);
    return {first.from, last.from + static_cast<int>(last.weights.size()) - first.from};
}

// Rows of the picture, scaled in width alone.
std::vector<uint8_t> narrowed(const Picture& picture, const Range& rows,
                              const std::vector<Span>& spans)
{
    std::vector<uint8_t> result;
    result.reserve(static_cast<size_t>(rows.count) * spans.size() * kChannels);
    for (int y = rows.from; y < rows.from + rows.count; ++y) {
        const uint8_t* row =
            &picture.rgba[4 * static_cast<size_t>(y) * static_cast<size_t>(picture.width)];
        for (const Span& span : spans) {
            const uint8_t* pixel = row + 4 * static_cast<std::ptrdiff_t>(span.from);
            int sums[kChannels] = {};
            for (const int weight : span.weights) {
                for (int channel = 0; channel < kChannels; ++channel)
                    sums[channel] += weight * pixel[channel];
                pixel += 4;
            }
            for (const int sum : sums)
                result.push_back(static_cast<uint8_t>(sum / kUnit));
        }
    }
    return result;
}

} // namespace

Picture scaledPart(const Picture& picture, PixelSize size, const PixelArea& part)
{
    const Range rows = rangeOf(part.y, part.height, size.height, picture.height);
    const std::vector<uint8_t> narrow =
        narrowed(picture, rows, spansOf(part.x, part.width, size.width, picture.width));
    const size_t rowBytes = static_cast<size_t>(part.width) * kChannels;

    Picture result;
    result.width = part.width;
    result.height = part.height;
    result.rgba.reserve(static_cast<size_t>(part.width) * static_cast<size_t>(part.height) * 4);
    for (const Span& span : spansOf(part.y, part.height, size.height, picture.height)) {
        const uint8_t* row = &narrow[static_cast<size_t>(span.from - rows.from) * rowBytes];
        for (size_t i = 0; i < rowBytes; ++i) {
            int sum = 0;
            const uint8_t* value = row + i;
            for (const int weight : span.weights) {
                sum += weight * *value;
                value += rowBytes;
            }
            result.rgba.push_back(static_cast<uint8_t>(sum / kUnit));
            if (i % kChannels == kChannels - 1)
                result.rgba.push_back(0xFF);
        }
    }
    return result;
}

PixelArea sourceOf(const Picture& picture, PixelSize size, const PixelArea& part)
{
    const Range columns = rangeOf(part.x, part.width, size.width, picture.width);
    const Range rows = rangeOf(part.y, part.height, size.height, picture.height);
    return {columns.from, rows.from, columns.count, rows.count};
}

} // namespace host
