#include "renderer_steps.h"

#include <map>
#include <sstream>

namespace steps
{

using std::to_string;
using vkb::Button_t;
using vkb::Rect_t;

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
        values += (values.empty() ? "" : ",") + to_string(coordinate(rect, expression));
    return values;
}

// A checked call on a surface. What is reported when it fails names the arguments as the source
// writes them.
Steps checked(const std::string& surface, const std::string& call, const std::string& text)
{
    return {{surface + "." + call, "m_surface->" + text}};
}

Steps onRect(const std::string& surface, const std::string& method, const Rect_t& rect,
             const std::string& expressions)
{
    return checked(surface, method + "(" + coordinates(rect, expressions) + ")",
                   method + "(m_surface," + expressions + ")");
}

Steps colour(const std::string& surface, const std::string& variable, const std::string& value)
{
    const std::string& v = variable;
    return checked(surface, "SetColor(" + value + ")",
                   "SetColor(m_surface,ARGB_R(" + v + "),ARGB_G(" + v + "),ARGB_B(" + v +
                       "),ARGB_A(" + v + "))");
}

Steps lines(const std::string& surface, const Rect_t& rect, const std::string& value,
            const test_support::Lines& ends)
{
    Steps steps = colour(surface, "line_c", value);
    for (const std::string& expressions : ends)
        steps = steps + onRect(surface, "DrawLine", rect, expressions);
    return steps;
}

Steps face(const std::string& surface, int fontHeight, const Button_t& key, const std::string& fill)
{
    const Rect_t& rect = key.rect;
    const std::string place = to_string(rect.positionX) + "/" + to_string(rect.positionY) + "-" +
                              to_string(rect.width) + "/" + to_string(rect.height);
    const int centre = rect.positionX + rect.width / 2;
    const int top = rect.positionY + (rect.height - fontHeight) / 2;
    return colour(surface, "rect_c", fill) + onRect(surface, "FillRectangle", rect, "x,y,w+1,h+1") +
           Renderer::logged("drawElement", "[" + place + "-" + key.text + "] \n", kDetail) +
           colour(surface, "font_c", kWhite) +
           checked(surface,
                   "DrawString(\"" + key.text + "\",-1," + to_string(centre) + "," +
                       to_string(top) + ",TOPCENTER)",
                   "DrawString(m_surface,key.text.c_str(),-1,Xcenter,Ycenter,DSTF_TOPCENTER)");
}

Steps sunkenKey(const std::string& surface, int fontHeight, const Button_t& key)
{
    return face(surface, fontHeight, key, kSunkenFill) +
           lines(surface, key.rect, kShadow,
                 {"x,y,x+w,y", "x,y,x,y+h", "x,y+1,x+w,y+1", "x+1,y,x+1,y+h"});
}

Steps frame(const std::string& surface, const Button_t& key)
{
    return lines(surface, key.rect, kWhite,
                 {"x+w,y,x+w,y+h", "x,y+h,x+w,y+h", "x,y,x+w,y", "x,y,x,y+h"});
}

Steps flipWhole(const std::string& surface)
{
    return checked(surface, "Flip(null,WAITFORSYNC)", "Flip (m_surface, NULL, DSFLIP_WAITFORSYNC)");
}

Steps flipKey(const std::string& surface, const Button_t& key)
{
    return checked(surface, "Flip({" + coordinates(key.rect, "x,y,x+w,y+h") + "},WAITFORSYNC)",
                   "Flip (m_surface, &region, DSFLIP_WAITFORSYNC)");
}

} // namespace

Steps Renderer::logged(const std::string& function, const std::string& message, uint32_t level)
{
    return steps::logged("keyboard_ui.cpp", function, message, level);
}

Steps Renderer::construction(int width, int height) const
{
    return checked(m_surface, "GetSize()", "GetSize(m_surface, &m_win_width,&m_win_height)") +
           logged("KeyBoardUI", "called (" + to_string(width) + "/" + to_string(height) + ")\n") +
           clear(kBackground, true);
}

Steps Renderer::destruction(const std::string& font)
{
    return logged("~KeyBoardUI", "called \n") +
           (font.empty() ? Steps() : calls({font + ".Release()"}));
}

Steps Renderer::setLayoutData(size_t keys, const std::string& fontPath,
                              const std::string& font) const
{
    return logged("setLayoutData", "called lines;" + to_string(keys) + "\n") +
           calls({"dfb.CreateFont(" + fontPath + ",{flags=HEIGHT height=30})",
                  m_surface + ".SetFont(" + font + ")", font + ".GetHeight()"}) +
           logged("setLayoutData", "font-height:" + to_string(m_font_height) + "\n");
}

Steps Renderer::setLayoutDataWithoutFile(size_t keys)
{
    return logged("setLayoutData", "called lines;" + to_string(keys) + "\n") +
           logged("setLayoutData", "font file is not exist !!!\n", kError);
}

Steps Renderer::clear(const std::string& colour, bool flip) const
{
    const Steps fill = checked(m_surface, "Clear(" + colour + ")",
                               "Clear(m_surface, ARGB_R(argb), ARGB_G(argb),ARGB_B(argb),"
                               "ARGB_A(argb))");
    const Steps shown =
        checked(m_surface, "Flip(null,NONE)", "Flip(m_surface,NULL, DSFLIP_NONE)") + fill;
    return logged("clear", "called \n") + fill + (flip ? shown : Steps());
}

Steps Renderer::draw(const Keys& keys, const Keys& locked, bool flip) const
{
    Steps steps = logged("draw", "called\n", kDetail);
    if (m_font_height == kNoFont)
        return steps;
    steps = steps + clear(kBackground, false);
    for (const Button_t& key : keys)
        steps = steps + face(m_surface, m_font_height, key, kNormalFill) +
                lines(m_surface, key.rect, kShadow,
                      {"x+w,y,x+w,y+h", "x,y+h,x+w,y+h", "x+w-1,y,x+w-1,y+h", "x,y+h-1,x+w,y+h-1"});
    for (const Button_t& key : locked)
        steps = steps + sunkenKey(m_surface, m_font_height, key);
    return steps + (flip ? flipWhole(m_surface) : Steps()) + logged("draw", "done\n", kDetail);
}

Steps Renderer::showShown()
{
    return logged("show", "called \n");
}

Steps Renderer::showHidden(const Keys& keys, const Keys& locked) const
{
    return showShown() + draw(keys, locked, true);
}

Steps Renderer::hideShown() const
{
    return hideHidden() + clear(kTransparent, true);
}

Steps Renderer::hideHidden()
{
    return logged("hide", "called\n");
}

Steps Renderer::setfocus(const Keys& keys, const Keys& locked, const Button_t& key) const
{
    return logged("setfocus", "called \n") + draw(keys, locked, false) + frame(m_surface, key) +
           flipWhole(m_surface);
}

Steps Renderer::setLocked(const Keys& keys, const Keys& locked) const
{
    return logged("setLocked", "called \n") + draw(keys, locked, false) + flipWhole(m_surface);
}

Steps Renderer::press(const Button_t& key) const
{
    return sunkenKey(m_surface, m_font_height, key) + flipKey(m_surface, key);
}

Steps Renderer::pressed(const Button_t& key) const
{
    return face(m_surface, m_font_height, key, kNormalFill) + frame(m_surface, key) +
           flipKey(m_surface, key);
}

} // namespace steps
