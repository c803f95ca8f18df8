#include "keep_objects.h"

#include <vector>

namespace
{

// DirectFB's objects are tables of functions: each slot replaced here calls the one that was
// there before.
decltype(IDirectFB::GetDisplayLayer) realGetDisplayLayer;
decltype(IDirectFB::CreateFont) realCreateFont;
decltype(IDirectFBDisplayLayer::CreateWindow) realCreateWindow;
decltype(IDirectFBWindow::GetSurface) realGetSurface;

// Never freed: leak checkers look after the last destructor.
DFBResult keep(DFBResult result, void* object)
{
    static std::vector<void*>* const kept = new std::vector<void*>;
    if (result == DFB_OK)
        kept->push_back(object);
    return result;
}

DFBResult getSurface(IDirectFBWindow* window, IDirectFBSurface** surface)
{
    const DFBResult result = realGetSurface(window, surface);
    return keep(result, *surface);
}

DFBResult createWindow(IDirectFBDisplayLayer* layer, const DFBWindowDescription* wanted,
                       IDirectFBWindow** window)
{
    const DFBResult result = realCreateWindow(layer, wanted, window);
    if (result == DFB_OK) {
        realGetSurface = (*window)->GetSurface;
        (*window)->GetSurface = getSurface;
    }
    return keep(result, *window);
}

DFBResult getDisplayLayer(IDirectFB* dfb, DFBDisplayLayerID id, IDirectFBDisplayLayer** layer)
{
    const DFBResult result = realGetDisplayLayer(dfb, id, layer);
    if (result == DFB_OK) {
        realCreateWindow = (*layer)->CreateWindow;
        (*layer)->CreateWindow = createWindow;
    }
    return keep(result, *layer);
}

DFBResult createFont(IDirectFB* dfb, const char* path, const DFBFontDescription* wanted,
                     IDirectFBFont** font)
{
    const DFBResult result = realCreateFont(dfb, path, wanted, font);
    return keep(result, *font);
}

} // namespace

void keepObjectsMadeBy(IDirectFB* dfb)
{
    realGetDisplayLayer = dfb->GetDisplayLayer;
    realCreateFont = dfb->CreateFont;
    dfb->GetDisplayLayer = getDisplayLayer;
    dfb->CreateFont = createFont;
}
