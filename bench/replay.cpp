#include "replay.h"

#include "report_fd.h"

namespace bench
{

namespace
{

// DirectFB's objects are tables of functions: a watcher puts its own function into a slot and
// keeps the one that was there.
decltype(IDirectFB::GetDisplayLayer) realGetDisplayLayer;
decltype(IDirectFBDisplayLayer::CreateWindow) realCreateWindow;
decltype(IDirectFBWindow::GetSurface) realGetSurface;
IDirectFBSurface* theSurface = nullptr;
bool isRecordedAtOnce = false;

void startRecording(IDirectFBSurface* surface);

DFBResult watchGetSurface(IDirectFBWindow* window, IDirectFBSurface** surface)
{
    const DFBResult result = realGetSurface(window, surface);
    window->GetSurface = realGetSurface;
    theSurface = *surface;
    if (isRecordedAtOnce)
        startRecording(theSurface);
    return result;
}

DFBResult watchCreateWindow(IDirectFBDisplayLayer* layer, const DFBWindowDescription* wanted,
                            IDirectFBWindow** window)
{
    const DFBResult result = realCreateWindow(layer, wanted, window);
    layer->CreateWindow = realCreateWindow;
    if (result == DFB_OK) {
        realGetSurface = (*window)->GetSurface;
        (*window)->GetSurface = watchGetSurface;
    }
    return result;
}

DFBResult watchGetDisplayLayer(IDirectFB* dfb, DFBDisplayLayerID id, IDirectFBDisplayLayer** layer)
{
    const DFBResult result = realGetDisplayLayer(dfb, id, layer);
    dfb->GetDisplayLayer = realGetDisplayLayer;
    if (result == DFB_OK) {
        realCreateWindow = (*layer)->CreateWindow;
        (*layer)->CreateWindow = watchCreateWindow;
    }
    return result;
}

IDirectFBSurface realTable;
std::vector<Call> recorded;

DFBResult recordClear(IDirectFBSurface* self, u8 r, u8 g, u8 b, u8 a)
{
    recorded.push_back({Call::Clear, {r, g, b, a}, 0, ""});
    return realTable.Clear(self, r, g, b, a);
}

DFBResult recordSetColor(IDirectFBSurface* self, u8 r, u8 g, u8 b, u8 a)
{
    recorded.push_back({Call::SetColor, {r, g, b, a}, 0, ""});
    return realTable.SetColor(self, r, g, b, a);
}

DFBResult recordFillRectangle(IDirectFBSurface* self, int x, int y, int w, int h)
{
    recorded.push_back({Call::FillRectangle, {x, y, w, h}, 0, ""});
    return realTable.FillRectangle(self, x, y, w, h);
}

DFBResult recordDrawLine(IDirectFBSurface* self, int x1, int y1, int x2, int y2)
{
    recorded.push_back({Call::DrawLine, {x1, y1, x2, y2}, 0, ""});
    return realTable.DrawLine(self, x1, y1, x2, y2);
}

DFBResult recordDrawString(IDirectFBSurface* self, const char* text, int bytes, int x, int y,
                           DFBSurfaceTextFlags flags)
{
    recorded.push_back(
        {Call::DrawString, {bytes, x, y, 0}, static_cast<unsigned int>(flags), text});
    return realTable.DrawString(self, text, bytes, x, y, flags);
}

// A template, because the tables name the region's type in another way from version to version.
template <class Region>
DFBResult recordFlip(IDirectFBSurface* self, const Region* region, DFBSurfaceFlipFlags flags)
{
    recorded.push_back({Call::Flip, {0, 0, 0, 0}, static_cast<unsigned int>(flags), ""});
    return realTable.Flip(self, region, flags);
}

void startRecording(IDirectFBSurface* surface)
{
    recorded.clear();
    realTable = *surface;
    surface->Clear = recordClear;
    surface->SetColor = recordSetColor;
    surface->FillRectangle = recordFillRectangle;
    surface->DrawLine = recordDrawLine;
    surface->DrawString = recordDrawString;
    surface->Flip = recordFlip;
}

} // namespace

void watchForSurface(IDirectFB* dfb)
{
    realGetDisplayLayer = dfb->GetDisplayLayer;
    dfb->GetDisplayLayer = watchGetDisplayLayer;
}

IDirectFBSurface* watchedSurface()
{
    return theSurface;
}

void recordFirstSurface(IDirectFB* dfb)
{
    isRecordedAtOnce = true;
    watchForSurface(dfb);
}

void reportCalls()
{
    for (const Call& call : recorded)
        dprintf(kReportFd, "call %d: %d %d %d %d, flags 0x%X, '%s'\n", call.kind, call.numbers[0],
                call.numbers[1], call.numbers[2], call.numbers[3], call.flags, call.text.c_str());
}

std::vector<Call> recordCalls(IDirectFBSurface* surface, void (*action)(void*), void* context)
{
    startRecording(surface);
    action(context);
    *surface = realTable;
    return recorded;
}

void replay(IDirectFBSurface* surface, const std::vector<Call>& calls)
{
    for (const Call& call : calls) {
        const int* n = call.numbers;
        switch (call.kind) {
        case Call::Clear:
            surface->Clear(surface, static_cast<u8>(n[0]), static_cast<u8>(n[1]),
                           static_cast<u8>(n[2]), static_cast<u8>(n[3]));
            break;
        case Call::SetColor:
            surface->SetColor(surface, static_cast<u8>(n[0]), static_cast<u8>(n[1]),
                              static_cast<u8>(n[2]), static_cast<u8>(n[3]));
            break;
        case Call::FillRectangle:
            surface->FillRectangle(surface, n[0], n[1], n[2], n[3]);
            break;
        case Call::DrawLine:
            surface->DrawLine(surface, n[0], n[1], n[2], n[3]);
            break;
        case Call::DrawString:
            surface->DrawString(surface, call.text.c_str(), n[0], n[1], n[2],
                                static_cast<DFBSurfaceTextFlags>(call.flags));
            break;
        case Call::Flip:
            surface->Flip(surface, nullptr, static_cast<DFBSurfaceFlipFlags>(call.flags));
            break;
        }
    }
}

} // namespace bench
