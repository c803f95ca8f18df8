#include "recorder.h"

#include <stdexcept>

#include "gif_recorder.h"
#include "png_recorder.h"

namespace host
{

namespace
{

bool endsWith(const std::string& text, const std::string& end)
{
    return text.size() > end.size() && text.compare(text.size() - end.size(), end.size(), end) == 0;
}

} // namespace

std::unique_ptr<Recorder> makeRecorder(const std::string& file, RecorderColours colours)
{
    if (endsWith(file, ".gif"))
        return std::make_unique<GifRecorder>(file, colours);
    if (endsWith(file, ".png"))
        return std::make_unique<PngRecorder>(file.substr(0, file.size() - 4));
    throw std::runtime_error(file + ": expected a name that ends in .gif or .png");
}

} // namespace host
