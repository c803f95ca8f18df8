// Draws a question and its choices, and walks over them.
#include "panel.h"

#include <algorithm>
#include <sstream>
#include <utility>

namespace host
{

namespace
{

// Pixels.
const int kWidth = 1200;
const int kInset = 40;
const int kTextSize = 32;
const int kTextRow = 44;
const int kChoiceRow = 64;
const int kTopWithLine = 60; // the keyboard takes the lower half then
const int kMostTextRows = 8;
const int kMostChoices = 9; // more are scrolled

struct Colour {
    u8 red, green, blue;
};

const Colour kGround = {0x14, 0x1C, 0x2E};
const Colour kEdge = {0x5B, 0x8D, 0xEF};
const Colour kFocus = {0xF4, 0xF6, 0xFB};
const Colour kText = {0xF4, 0xF6, 0xFB};
const Colour kFocusText = {0x14, 0x1C, 0x2E};
const Colour kDisabled = {0x7A, 0x84, 0x98};

void fill(IDirectFBSurface* surface, const DFBRectangle& area, const Colour& colour)
{
    surface->SetColor(surface, colour.red, colour.green, colour.blue, 0xFF);
    surface->FillRectangle(surface, area.x, area.y, area.w, area.h);
}

void write(IDirectFBSurface* surface, const std::string& text, int x, int y, const Colour& colour)
{
    surface->SetColor(surface, colour.red, colour.green, colour.blue, 0xFF);
    surface->DrawString(surface, text.c_str(), -1, x, y, DSTF_TOPLEFT);
}

} // namespace

Panel::Panel(const Screen& screen, const std::string& font)
    : m_screen(screen), m_font(loadFont(screen.directFB(), font, kTextSize)),
      m_field(screen.directFB(), font, "")
{
}

void Panel::ask(Question question, Answer answer)
{
    withdraw();
    m_question = std::move(question);
    m_answer = std::move(answer);
    m_line = TextLine();
    m_line.insert(m_question.line);
    m_preedit.clear();
    m_words = wrapped(m_question.text);
    m_row = m_question.hasLine ? 0 : static_cast<int>(m_question.chosen);
    open();
    draw();
}

void Panel::withdraw()
{
    if (isOpen())
        close(-1);
}

void Panel::choose()
{
    const size_t choice = static_cast<size_t>(std::max(0, m_row - firstChoiceRow()));
    if (choice < m_question.choices.size() && m_question.choices[choice].enabled)
        close(static_cast<int>(choice));
}

void Panel::goBack()
{
    close(-1);
}

void Panel::edit(const Edit& edit)
{
    applyEdit(edit, m_line);
    draw();
}

void Panel::compose(const std::string& text)
{
    if (text == m_preedit)
        return;
    m_preedit = text;
    draw();
}

void Panel::move(int rows)
{
    m_row = std::min(std::max(0, m_row + rows), this->rows() - 1);
    draw();
}

std::string Panel::text() const
{
    std::string text = m_question.text;
    for (const Question::Choice& choice : m_question.choices)
        text += "\n" + choice.label;
    return text;
}

int Panel::rows() const
{
    return firstChoiceRow() + static_cast<int>(m_question.choices.size());
}

void Panel::open()
{
    const int choices = std::min(kMostChoices, static_cast<int>(m_question.choices.size()));
    m_height = 2 * kInset + static_cast<int>(m_words.size()) * kTextRow + choices * kChoiceRow +
               (m_question.hasLine ? TextField::kHeight : 0) + kInset / 2;
    IDirectFBDisplayLayer* layer = m_screen.layer();
    DFBDisplayLayerConfig screen = {};
    require(layer->GetConfiguration(layer, &screen), "GetConfiguration");

    DFBWindowDescription description = {};
    description.flags = static_cast<DFBWindowDescriptionFlags>(
        DWDESC_WIDTH | DWDESC_HEIGHT | DWDESC_POSX | DWDESC_POSY | DWDESC_PIXELFORMAT);
    description.width = kWidth;
    description.height = static_cast<unsigned int>(m_height);
    description.posx = (screen.width - kWidth) / 2;
    description.posy = m_question.hasLine ? kTopWithLine : (screen.height - m_height) / 2;
    description.pixelformat = DSPF_RGB32;
    require(layer->CreateWindow(layer, &description, &m_window), "CreateWindow");
    require(m_window->GetSurface(m_window, &m_surface), "GetSurface");
}

void Panel::close(int choice)
{
    m_surface->Release(m_surface);
    m_window->Destroy(m_window);
    m_window->Release(m_window);
    m_surface = nullptr;
    m_window = nullptr;
    const Answer answer = std::exchange(m_answer, nullptr);
    answer(choice, m_line.text());
}

void Panel::draw()
{
    fill(m_surface, {0, 0, kWidth, m_height}, kEdge);
    fill(m_surface, {3, 3, kWidth - 6, m_height - 6}, kGround);
    int y = kInset;
    m_surface->SetFont(m_surface, m_font);
    for (const std::string& words : m_words) {
        write(m_surface, words, kInset, y, kText);
        y += kTextRow;
    }
    if (m_question.hasLine) {
        const DFBRectangle area = {kInset, y - TextField::kHeight / 3, kWidth - 2 * kInset,
                                   TextField::kHeight};
        IDirectFBSurface* part = nullptr;
        require(m_surface->GetSubSurface(m_surface, &area, &part), "GetSubSurface");
        m_field.draw(part, m_line, 0, isOnLine(), m_preedit);
        part->Release(part);
        y += TextField::kHeight;
        m_surface->SetFont(m_surface, m_font);
    }
    y += kInset / 2;

    const int count = static_cast<int>(m_question.choices.size());
    const int focused = m_row - firstChoiceRow();
    const int first =
        std::min(std::max(0, focused - kMostChoices / 2), std::max(0, count - kMostChoices));
    for (int i = first; i < std::min(count, first + kMostChoices); ++i) {
        const Question::Choice& choice = m_question.choices[static_cast<size_t>(i)];
        if (i == focused)
            fill(m_surface, {kInset / 2, y, kWidth - kInset, kChoiceRow - 4}, kFocus);
        const Colour& colour = !choice.enabled ? kDisabled : i == focused ? kFocusText : kText;
        write(m_surface, choice.label, kInset, y + (kChoiceRow - 4 - kTextRow) / 2, colour);
        y += kChoiceRow;
    }
    require(m_surface->Flip(m_surface, nullptr, DSFLIP_NONE), "Flip");
    require(m_window->SetOpacity(m_window, 0xFF), "SetOpacity");
}

int Panel::widthOf(const std::string& text) const
{
    int width = 0;
    m_font->GetStringWidth(m_font, text.c_str(), -1, &width);
    return width;
}

std::vector<std::string> Panel::wrapped(const std::string& text) const
{
    std::vector<std::string> rows;
    std::istringstream lines(text);
    for (std::string line; std::getline(lines, line);) {
        std::istringstream words(line);
        std::string row;
        for (std::string word; words >> word;) {
            std::string longer = row;
            longer.append(row.empty() ? "" : " ").append(word);
            if (row.empty() || widthOf(longer) <= kWidth - 2 * kInset) {
                row = longer;
                continue;
            }
            rows.push_back(row);
            row = word;
        }
        rows.push_back(row);
    }
    if (rows.size() > kMostTextRows) {
        rows.resize(kMostTextRows);
        rows.back() = "...";
    }
    return rows;
}

} // namespace host
