#include "page.h"

#include "keyboard_constants.h"

namespace host
{

namespace
{

const int kLeft = 606;
const int kHeadingTop = 220;
const int kWordsTop = 330;
const int kHeadingSize = 72;
const int kWordsSize = 30;

IDirectFBSurface* openWindow(const Screen& screen)
{
    IDirectFBDisplayLayer* layer = screen.layer();
    DFBDisplayLayerConfig layerConfig = {};
    require(layer->GetConfiguration(layer, &layerConfig), "GetConfiguration");

    DFBWindowDescription description = {};
    description.flags = static_cast<DFBWindowDescriptionFlags>(DWDESC_WIDTH | DWDESC_HEIGHT |
                                                               DWDESC_POSX | DWDESC_POSY);
    description.width = layerConfig.width;
    description.height = layerConfig.height;
    IDirectFBWindow* window = nullptr;
    require(layer->CreateWindow(layer, &description, &window), "CreateWindow");
    IDirectFBSurface* surface = nullptr;
    require(window->GetSurface(window, &surface), "GetSurface");
    require(window->SetOpacity(window, 0xFF), "SetOpacity");
    return surface;
}

} // namespace

Page::Page(const Screen& screen, const std::string& font)
    : m_surface(openWindow(screen)), m_heading(loadFont(screen.directFB(), font, kHeadingSize)),
      m_words(loadFont(screen.directFB(), font, kWordsSize)),
      m_field(std::make_unique<TextField>(screen.directFB(), font, "Your name"))
{
    // The field stands above the keyboard and is as wide.
    const DFBRectangle fieldArea = {velmora::browser::vkb::kWindowX, 460, 1302, TextField::kHeight};
    require(m_surface->GetSubSurface(m_surface, &fieldArea, &m_fieldSurface), "GetSubSurface");
}

void Page::draw(const TextLine& line, bool entered)
{
    m_surface->Clear(m_surface, 0x10, 0x18, 0x28, 0xFF);
    m_surface->SetColor(m_surface, 0xFF, 0xFF, 0xFF, 0xFF);
    m_surface->SetFont(m_surface, m_heading);
    m_surface->DrawString(m_surface, "Sign in", -1, kLeft, kHeadingTop, DSTF_TOPLEFT);
    m_surface->SetColor(m_surface, 0xB0, 0xB8, 0xC8, 0xFF);
    m_surface->SetFont(m_surface, m_words);
    m_surface->DrawString(m_surface,
                          entered ? "Arrows move, OK presses, Back hides the keyboard"
                                  : "OK enters the field, Back leaves the page",
                          -1, kLeft, kWordsTop, DSTF_TOPLEFT);
    m_field->draw(m_fieldSurface, line, 0, entered);
    m_surface->Flip(m_surface, nullptr, DSFLIP_WAITFORSYNC);
}

} // namespace host
