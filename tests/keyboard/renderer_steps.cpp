#include "renderer_steps.h"

#include <map>
#include <sstream>

namespace steps
{

using velmora::browser::vkb::Button_t;
using velmora::browser::vkb::Rect_t;

namespace
{

const char kBackground[] = "30,30,30,255";
const char kTransparent[] = "0,0,0,0";
const char kNormalFill[] = "50,50,50,255";
const char kSunkenFill[] = "25,25,25,255";
const char kShadow[] = "10,10,10,255";
const char kWhite[] = "255,255,255,255";

// The value of a coordinate as the source writes it: x, y, w, h and whole numbers, added or
// subtracted.
int coordinate(const Rect_t& rect, const std::string& expression)
{
    const std::map<char, int> fields = {
        {'x', rect.positionX}, {'y', rect.positionY}, {'w', rect.width}, {'h', rect.height}};
    int sum = 0;
    int sign = 1;
    for (const char c : expression) {
        if (c == '+' || c == '-')
            sign = c == '+' ? 1 : -1;
        else
            sum += sign * (fields.count(c) != 0 ? fields.at(c) : c - '0');
    }
    return sum;
}

// The values of a list of coordinates, such as "x,y+h,x+w,y+h".
std::string coordinates(const Rect_t& rect, const std::string& expressions)
{
    std::istringstream stream(expressions);
    std::string values;
    for (std::string expression; std::getline(stream, expression, ',');)
        values += (values.empty() ? "" : ",") + std::to_string(coordinate(rect, expression));
    return values;
}

} // namespace

Steps Renderer::logged(uint32_t level, const std::string& function, const std::string& message)
{
    return steps::logged("keyboard_ui.cpp", level, function, message);
}

Step Renderer::call(const std::string& call, const std::string& checkedAs) const
{
    return {m_surface + "." + call, checkedAs};
}

Steps Renderer::colour(const std::string& variable, const std::string& colour) const
{
    const std::string& v = variable;
    return {call("SetColor(" + colour + ")", "m_surface->SetColor(m_surface,ARGB_R(" + v +
                                                 "),ARGB_G(" + v + "),ARGB_B(" + v + "),ARGB_A(" +
                                                 v + "))")};
}

Steps Renderer::onRect(const std::string& method, const Rect_t& rect,
                       const std::string& expressions) const
{
    return {call(method + "(" + coordinates(rect, expressions) + ")",
                 "m_surface->" + method + "(m_surface," + expressions + ")")};
}

Steps Renderer::lines(const Rect_t& rect, const std::vector<std::string>& ends) const
{
    Steps steps;
    for (const std::string& expressions : ends)
        steps = steps + onRect("DrawLine", rect, expressions);
    return steps;
}

Steps Renderer::face(const Button_t& key, const std::string& fill) const
{
    const int x = key.rect.positionX;
    const int y = key.rect.positionY;
    const int w = key.rect.width;
    const int h = key.rect.height;
    const std::string geometry = std::to_string(x) + "/" + std::to_string(y) + "-" +
                                 std::to_string(w) + "/" + std::to_string(h);

    Steps steps = colour("rect_c", fill) + onRect("FillRectangle", key.rect, "x,y,w+1,h+1") +
                  logged(kDetail, "drawElement", "[" + geometry + "-" + key.text + "] \n") +
                  colour("font_c", kWhite);
    steps.push_back(call("DrawString(\"" + key.text + "\",-1," + std::to_string(x + w / 2) + "," +
                             std::to_string(y + (h - m_fontHeight) / 2) + ",TOPCENTER)",
                         "m_surface->DrawString(m_surface,key.text.c_str(),-1,Xcenter,Ycenter,"
                         "DSTF_TOPCENTER)"));
    return steps;
}

Steps Renderer::normalKey(const Button_t& key) const
{
    return face(key, kNormalFill) + colour("line_c", kShadow) +
           lines(key.rect,
                 {"x+w,y,x+w,y+h", "x,y+h,x+w,y+h", "x+w-1,y,x+w-1,y+h", "x,y+h-1,x+w,y+h-1"});
}

Steps Renderer::sunkenKey(const Button_t& key) const
{
    return face(key, kSunkenFill) + colour("line_c", kShadow) +
           lines(key.rect, {"x,y,x+w,y", "x,y,x,y+h", "x,y+1,x+w,y+1", "x+1,y,x+1,y+h"});
}

Steps Renderer::frame(const Button_t& key) const
{
    return colour("line_c", kWhite) +
           lines(key.rect, {"x+w,y,x+w,y+h", "x,y+h,x+w,y+h", "x,y,x+w,y", "x,y,x,y+h"});
}

Steps Renderer::flipWhole() const
{
    return {
        call("Flip(null,WAITFORSYNC)", "m_surface->Flip (m_surface, NULL, DSFLIP_WAITFORSYNC)")};
}

Steps Renderer::flipKey(const Button_t& key) const
{
    const std::string region = coordinates(key.rect, "x,y,x+w,y+h");
    return {call("Flip({" + region + "},WAITFORSYNC)",
                 "m_surface->Flip (m_surface, &region, DSFLIP_WAITFORSYNC)")};
}

Steps Renderer::construction(int width, int height) const
{
    const Steps size = {call("GetSize()", "m_surface->GetSize(m_surface, "
                                          "&m_win_width,&m_win_height)")};
    return size +
           logged(kTrace, "KeyBoardUI",
                  "called (" + std::to_string(width) + "/" + std::to_string(height) + ")\n") +
           clear(kBackground, true);
}

Steps Renderer::destruction(const std::string& font)
{
    const Steps release = {{font + ".Release()", ""}};
    return logged(kTrace, "~KeyBoardUI", "called \n") + (font.empty() ? Steps() : release);
}

Steps Renderer::setLayoutData(size_t keys, const std::string& fontPath,
                              const std::string& font) const
{
    const Steps loading = {{"dfb.CreateFont(" + fontPath + ",{flags=HEIGHT height=30})", ""},
                           {m_surface + ".SetFont(" + font + ")", ""},
                           {font + ".GetHeight()", ""}};
    return logged(kTrace, "setLayoutData", "called lines;" + std::to_string(keys) + "\n") +
           loading +
           logged(kTrace, "setLayoutData", "font-height:" + std::to_string(m_fontHeight) + "\n");
}

Steps Renderer::setLayoutDataWithoutFile(size_t keys)
{
    return logged(kTrace, "setLayoutData", "called lines;" + std::to_string(keys) + "\n") +
           logged(kError, "setLayoutData", "font file is not exist !!!\n");
}

Steps Renderer::clear(const std::string& colour, bool flip) const
{
    const Step fill = call("Clear(" + colour + ")", "m_surface->Clear(m_surface, ARGB_R(argb), "
                                                    "ARGB_G(argb),ARGB_B(argb),ARGB_A(argb))");
    Steps steps = logged(kTrace, "clear", "called \n");
    steps.push_back(fill);
    if (flip) {
        steps.push_back(call("Flip(null,NONE)", "m_surface->Flip(m_surface,NULL, DSFLIP_NONE)"));
        steps.push_back(fill);
    }
    return steps;
}

Steps Renderer::draw(const Keys& keys, const Keys& locked, bool flip) const
{
    Steps steps = logged(kDetail, "draw", "called\n") + clear(kBackground, false);
    for (const Button_t& key : keys)
        steps = steps + normalKey(key);
    for (const Button_t& key : locked)
        steps = steps + sunkenKey(key);
    return steps + (flip ? flipWhole() : Steps()) + logged(kDetail, "draw", "done\n");
}

Steps Renderer::drawWithoutFont()
{
    return logged(kDetail, "draw", "called\n");
}

Steps Renderer::showHidden(const Keys& keys, const Keys& locked) const
{
    return showShown() + draw(keys, locked, true);
}

Steps Renderer::showShown()
{
    return logged(kTrace, "show", "called \n");
}

Steps Renderer::hideShown() const
{
    return hideHidden() + clear(kTransparent, true);
}

Steps Renderer::hideHidden()
{
    return logged(kTrace, "hide", "called\n");
}

Steps Renderer::setfocus(const Keys& keys, const Keys& locked, const Button_t& key) const
{
    return logged(kTrace, "setfocus", "called \n") + draw(keys, locked, false) + frame(key) +
           flipWhole();
}

Steps Renderer::setfocusWithoutFont(const Button_t& key) const
{
    return logged(kTrace, "setfocus", "called \n") + drawWithoutFont() + frame(key) + flipWhole();
}

Steps Renderer::setLocked(const Keys& keys, const Keys& locked) const
{
    return logged(kTrace, "setLocked", "called \n") + draw(keys, locked, false) + flipWhole();
}

Steps Renderer::setLockedWithoutFont() const
{
    return logged(kTrace, "setLocked", "called \n") + drawWithoutFont() + flipWhole();
}

Steps Renderer::press(const Button_t& key) const
{
    return sunkenKey(key) + flipKey(key);
}

Steps Renderer::pressed(const Button_t& key) const
{
    return face(key, kNormalFill) + frame(key) + flipKey(key);
}

} // namespace steps
