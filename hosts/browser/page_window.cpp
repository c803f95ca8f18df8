// The page's pixels on their way from the engine to the screen.
#include "page_window.h"

#include <algorithm>
#include <cstring>

namespace host
{

PageWindow::PageWindow(const Screen& screen)
{
    IDirectFBDisplayLayer* layer = screen.layer();
    DFBDisplayLayerConfig configuration = {};
    require(layer->GetConfiguration(layer, &configuration), "GetConfiguration");
    m_width = configuration.width;
    m_height = configuration.height;

    DFBWindowDescription description = {};
    description.flags = static_cast<DFBWindowDescriptionFlags>(
        DWDESC_WIDTH | DWDESC_HEIGHT | DWDESC_POSX | DWDESC_POSY | DWDESC_PIXELFORMAT);
    description.width = static_cast<unsigned int>(m_width);
    description.height = static_cast<unsigned int>(m_height);
    description.pixelformat = DSPF_RGB32;
    IDirectFBWindow* window = nullptr;
    require(layer->CreateWindow(layer, &description, &window), "CreateWindow");
    require(window->GetSurface(window, &m_surface), "GetSurface");
    m_surface->Clear(m_surface, 0, 0, 0, 0xFF);
    require(window->SetOpacity(window, 0xFF), "SetOpacity");
    m_page.assign(static_cast<size_t>(m_width) * static_cast<size_t>(m_height), 0);
}

bool PageWindow::show(const uint8_t* pixels, int bytesPerRow)
{
    const size_t rowBytes = static_cast<size_t>(m_width) * sizeof(uint32_t);
    int first = m_height, last = -1;
    for (int y = 0; y < m_height; ++y) {
        const uint8_t* row = pixels + static_cast<ptrdiff_t>(y) * bytesPerRow;
        uint32_t* kept = &m_page[static_cast<size_t>(y) * static_cast<size_t>(m_width)];
        if (std::memcmp(kept, row, rowBytes) == 0)
            continue;
        std::memcpy(kept, row, rowBytes);
        first = std::min(first, y);
        last = y;
    }
    if (last < 0)
        return false;
    const bool isEdge = last == m_height - 1;
    present(std::max(0, first - m_up), isEdge ? m_height - 1 : last - m_up);
    return true;
}

void PageWindow::moveUp(int rows)
{
    if (rows == m_up)
        return;
    m_up = rows;
    present(0, m_height - 1);
}

// Rows of the window.
void PageWindow::present(int firstRow, int lastRow)
{
    if (lastRow < firstRow)
        return;
    void* data = nullptr;
    int bytesPerRow = 0;
    require(m_surface->Lock(m_surface, DSLF_WRITE, &data, &bytesPerRow), "Lock");
    for (int y = firstRow; y <= lastRow; ++y) {
        const size_t from = static_cast<size_t>(std::min(y + m_up, m_height - 1));
        std::memcpy(static_cast<uint8_t*>(data) + static_cast<ptrdiff_t>(y) * bytesPerRow,
                    &m_page[from * static_cast<size_t>(m_width)],
                    static_cast<size_t>(m_width) * sizeof(uint32_t));
    }
    require(m_surface->Unlock(m_surface), "Unlock");
    const DFBRegion region = {0, firstRow, m_width - 1, lastRow};
    require(m_surface->Flip(m_surface, &region, DSFLIP_NONE), "Flip");
}

} // namespace host
