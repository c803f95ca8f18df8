#include "kb_ui_test.h"

#include "directfb_check.h"
#include "log.h"
#include "window_description.h"

using namespace velmora::browser::vkb;

IDirectFB* dfb = nullptr;
IDirectFBDisplayLayer* layer = nullptr;
IDirectFBSurface* surface = nullptr;

void initDFB(int argc, char** argv, Rect_t rect)
{
    // The window outlives this function and is never released: it stands until the process ends.
    IDirectFBWindow* window = nullptr;
    const DFBWindowDescription win_desc =
        windowDescription(rect.positionX, rect.positionY, rect.width, rect.height);

    checkDirectFB(DirectFBInit(&argc, &argv), "DirectFBInit(&argc, &argv)");
    checkDirectFB(DirectFBCreate(&dfb), "DirectFBCreate(&dfb)");
    checkDirectFB(dfb->GetDisplayLayer(dfb, DLID_PRIMARY, &layer),
                  "dfb->GetDisplayLayer(dfb, DLID_PRIMARY, &layer)");
    // Set before the window, without which no window can be created on a shared layer, and
    // again after it, because creating a window may take the level back.
    checkDirectFB(layer->SetCooperativeLevel(layer, DLSCL_ADMINISTRATIVE),
                  "layer->SetCooperativeLevel(layer, DLSCL_ADMINISTRATIVE)");
    checkDirectFB(layer->CreateWindow(layer, &win_desc, &window),
                  "layer->CreateWindow( layer, &win_desc, &window )");
    checkDirectFB(layer->SetCooperativeLevel(layer, DLSCL_ADMINISTRATIVE),
                  "layer->SetCooperativeLevel(layer, DLSCL_ADMINISTRATIVE)");
    checkDirectFB(window->GetSurface(window, &surface), "window->GetSurface(window,&surface)");
    checkDirectFB(window->SetOpacity(window, 0xFF), "window->SetOpacity(window, 0xFF)");
    checkDirectFB(window->RequestFocus(window), "window->RequestFocus(window)");
    checkDirectFB(window->RaiseToTop(window), "window->RaiseToTop(window)");
}

int kb_ui_test(std::string, std::string)
{
    return 0;
}
