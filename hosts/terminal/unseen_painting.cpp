// DirectFB's interfaces are records of functions, one for each object: those that paint are
// replaced on the way from the screen over its layer and window to the surface.
#include "unseen_painting.h"

#include <map>
#include <string>
#include <utility>

namespace host
{

namespace
{

decltype(IDirectFB::GetDisplayLayer) get_display_layer = nullptr;
decltype(IDirectFB::CreateFont) create_font = nullptr;
decltype(IDirectFBDisplayLayer::CreateWindow) create_window = nullptr;
decltype(IDirectFBWindow::GetSurface) get_surface = nullptr;

// Stands in for any painting call.
template <typename... Arguments> DFBResult paintNothing(IDirectFBSurface*, Arguments...)
{
    return DFB_OK;
}

// Puts ours into the record's place and keeps what was there. An object may come back as it is.
template <typename Function> void replace(Function& place, Function ours, Function& kept)
{
    if (place == ours)
        return;
    kept = place;
    place = ours;
}

DFBResult getSurface(IDirectFBWindow* window, IDirectFBSurface** surface)
{
    const DFBResult result = get_surface(window, surface);
    if (result != DFB_OK)
        return result;
    (*surface)->Clear = paintNothing;
    (*surface)->FillRectangle = paintNothing;
    (*surface)->DrawLine = paintNothing;
    (*surface)->DrawString = paintNothing;
    (*surface)->Flip = paintNothing;
    return DFB_OK;
}

DFBResult createWindow(IDirectFBDisplayLayer* layer, const DFBWindowDescription* description,
                       IDirectFBWindow** window)
{
    const DFBResult result = create_window(layer, description, window);
    if (result == DFB_OK)
        replace((*window)->GetSurface, getSurface, get_surface);
    return result;
}

DFBResult getDisplayLayer(IDirectFB* dfb, DFBDisplayLayerID id, IDirectFBDisplayLayer** layer)
{
    const DFBResult result = get_display_layer(dfb, id, layer);
    if (result == DFB_OK)
        replace((*layer)->CreateWindow, createWindow, create_window);
    return result;
}

// Loads each font once and gives it again: loading takes longer the more was loaded before.
DFBResult createFont(IDirectFB* dfb, const char* file, const DFBFontDescription* description,
                     IDirectFBFont** font)
{
    static std::map<std::pair<std::string, int>, IDirectFBFont*> fonts;
    if (file == nullptr || description == nullptr || description->flags != DFDESC_HEIGHT)
        return create_font(dfb, file, description, font);
    IDirectFBFont*& known = fonts[{file, description->height}];
    if (known == nullptr) {
        const DFBResult result = create_font(dfb, file, description, &known);
        if (result != DFB_OK)
            return result;
    }
    *font = known;
    known->AddRef(known);
    return DFB_OK;
}

} // namespace

void leaveOutPainting(IDirectFB* dfb)
{
    replace(dfb->CreateFont, createFont, create_font);
    replace(dfb->GetDisplayLayer, getDisplayLayer, get_display_layer);
}

} // namespace host
