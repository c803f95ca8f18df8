// Draws the page, which stands in for one in a browser.
#include "page.h"

#include "colors.h"
#include "keyboard_constants.h"

namespace host
{

namespace
{

const int kLeft = velmora::browser::vkb::kWindowX + 6; // where the keyboard's first key begins
const int kHeadingTop = 200;
const int kWordsTop = 310;
const int kHeadingSize = 72;
const int kWordsSize = 32;
const int kFieldTop = 400;    // so that candidates have room between it and the keyboard
const int kFieldWidth = 1302; // as wide as the keyboard
const Color kPageColor = {0x10, 0x18, 0x28};

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
      m_field(screen.directFB(), font, "Your name"), m_remote(screen.directFB(), font)
{
    const DFBRectangle field = {velmora::browser::vkb::kWindowX, kFieldTop, kFieldWidth,
                                TextField::kHeight};
    require(m_surface->GetSubSurface(m_surface, &field, &m_field_surface), "GetSubSurface");
    m_surface->Clear(m_surface, kPageColor.red, kPageColor.green, kPageColor.blue, 0xFF);
    m_remote.draw(m_surface, {RemoteKey::Other, 0});
}

void Page::draw(const TextLine& line, bool entered, const std::string& composed)
{
    drawWords("Who is watching?", entered ? "Arrows move, OK presses, Back hides the keyboard"
                                          : "OK enters the field, Back leaves the page");
    m_field_surface->Clear(m_field_surface, kPageColor.red, kPageColor.green, kPageColor.blue,
                           0xFF);
    m_field.draw(m_field_surface, line, 0, entered, composed);
    m_surface->Flip(m_surface, nullptr, DSFLIP_WAITFORSYNC);
}

void Page::greet(const std::string& name)
{
    drawWords("Hello, " + name, "");
    m_field_surface->Clear(m_field_surface, kPageColor.red, kPageColor.green, kPageColor.blue,
                           0xFF);
    m_surface->Flip(m_surface, nullptr, DSFLIP_WAITFORSYNC);
}

void Page::showPressed(const RemoteKey& key)
{
    m_remote.draw(m_surface, key);
    const DFBRegion remote = {RemotePicture::kLeft, RemotePicture::kTop,
                              RemotePicture::kLeft + RemotePicture::kWidth - 1,
                              RemotePicture::kTop + RemotePicture::kHeight - 1};
    m_surface->Flip(m_surface, &remote, DSFLIP_WAITFORSYNC);
}

void Page::drawWords(const std::string& heading, const char* words)
{
    setColor(m_surface, kPageColor);
    m_surface->FillRectangle(m_surface, kLeft, kHeadingTop, kFieldWidth, kFieldTop - kHeadingTop);
    setColor(m_surface, kWhite);
    m_surface->SetFont(m_surface, m_heading);
    m_surface->DrawString(m_surface, heading.c_str(), -1, kLeft, kHeadingTop, DSTF_TOPLEFT);
    setColor(m_surface, kPale);
    m_surface->SetFont(m_surface, m_words);
    m_surface->DrawString(m_surface, words, -1, kLeft, kWordsTop, DSTF_TOPLEFT);
}

} // namespace host
