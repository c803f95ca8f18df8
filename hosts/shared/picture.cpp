// Makes pictures smaller.
#include "picture.h"

#include <array>
#include <cmath>

namespace host
{

namespace
{

const double kGamma = 2.2; // of a screen: light = number to this power
const int kLightSteps = 4096;

struct Light {
    std::array<int, 256> ofNumber;
    std::array<uint8_t, kLightSteps> toNumber;
};

Light makeLight()
{
    Light light = {};
    for (size_t i = 0; i < light.ofNumber.size(); ++i)
        light.ofNumber[i] = static_cast<int>(
            std::lround(std::pow(static_cast<double>(i) / 255, kGamma) * (kLightSteps - 1)));
    for (size_t i = 0; i < light.toNumber.size(); ++i)
        light.toNumber[i] = static_cast<uint8_t>(
            std::lround(std::pow(static_cast<double>(i) / (kLightSteps - 1), 1 / kGamma) * 255));
    return light;
}

} // namespace

Picture halved(const Picture& picture)
{
    static const Light kLight = makeLight();
    Picture half;
    half.width = picture.width / 2;
    half.height = picture.height / 2;
    half.rgba.reserve(static_cast<size_t>(half.width) * static_cast<size_t>(half.height) * 4);
    const size_t row = static_cast<size_t>(picture.width) * 4;
    for (int y = 0; y < half.height; ++y) {
        const uint8_t* pixel = &picture.rgba[static_cast<size_t>(y) * 2 * row];
        for (int x = 0; x < half.width; ++x, pixel += 8) {
            for (size_t i = 0; i < 4; ++i) {
                int sum = 0;
                for (const size_t offset : {size_t(0), size_t(4), row, row + 4})
                    sum += kLight.ofNumber[pixel[offset + i]];
                half.rgba.push_back(kLight.toNumber[static_cast<size_t>(sum / 4)]);
            }
        }
    }
    return half;
}

} // namespace host
