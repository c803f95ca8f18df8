// Pictures of the whole screen.
#include "recording.h"

namespace host
{

Recording::Recording(const Screen& screen, const std::string& file)
    : m_screen(screen), m_recorder(makeRecorder(file, RecorderColours::All))
{
}

void Recording::add(int milliseconds)
{
    m_recorder->add(halved(wholeScreen(m_screen)), milliseconds);
}

Picture wholeScreen(const Screen& screen)
{
    IDirectFBDisplayLayer* layer = screen.layer();
    DFBDisplayLayerConfig configuration = {};
    require(layer->GetConfiguration(layer, &configuration), "GetConfiguration");
    return screen.picture({0, 0, configuration.width, configuration.height});
}

} // namespace host
