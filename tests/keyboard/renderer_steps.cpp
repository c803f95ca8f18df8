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

} // namespace

Steps Renderer::logged(const std::string& function, const std::string& message, uint32_t level)
{
    return steps::logged("keyboard_ui.cpp", function, message, level);
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

Steps Renderer::lines(const Rect_t& rect, const std::string& colour,
                      const test_support::Lines& ends) const
{
    Steps steps = this->colour("line_c", colour);
    for (const std::string& expressions : ends)
        steps = steps + onRect("DrawLine", rect, expressions);
    return steps;
}

Steps Renderer::face(const Button_t& key, const std::string& fill) const
{
    const Rect_t& rect = key.rect;
    const std::string place = to_string(rect.positionX) + "/" + to_string(rect.positionY) + "-" +
                              to_string(rect.width) + "/" + to_string(rect.height);
    const int centre = rect.positionX + rect.width / 2;
    const int top = rect.positionY + (rect.height - m_font_height) / 2;
    const Steps text = {call("DrawString(\"" + key.text + "\",-1," + to_string(centre) + "," +
                                 to_string(top) + ",TOPCENTER)",
                             "m_surface->DrawString(m_surface,key.text.c_str(),-1,Xcenter,Ycenter,"
                             "DSTF_TOPCENTER)")};
    return colour("rect_c", fill) + onRect("FillRectangle", rect, "x,y,w+1,h+1") +
           logged("drawElement", "[" + place + "-" + key.text + "] \n", kDetail) +
           colour("font_c", kWhite) + text;
}

Steps Renderer::sunkenKey(const Button_t& key) const
{
    return face(key, kSunkenFill) +
           lines(key.rect, kShadow, {"x,y,x+w,y", "x,y,x,y+h", "x,y+1,x+w,y+1", "x+1,y,x+1,y+h"});
}

Steps Renderer::frame(const Button_t& key) const
{
    return lines(key.rect, kWhite, {"x+w,y,x+w,y+h", "x,y+h,x+w,y+h", "x,y,x+w,y", "x,y,x,y+h"});
}

Steps Renderer::flip(const std::string& region, const std::string& text) const
{
    return {call("Flip(" + region + ",WAITFORSYNC)",
                 "m_surface->Flip (m_surface, " + text + ", DSFLIP_WAITFORSYNC)")};
}

Steps Renderer::flipWhole() const
{
    return flip("null", "NULL");
}

Steps Renderer::flipKey(const Button_t& key) const
{
    return flip("{" + coordinates(key.rect, "x,y,x+w,y+h") + "}", "&region");
}

Steps Renderer::construction(int width, int height) const
{
    const Steps size = {call("GetSize()", "m_surface->GetSize(m_surface, "
                                          "&m_win_width,&m_win_height)")};
    return size +
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
    const Step fill = call("Clear(" + colour + ")", "m_surface->Clear(m_surface, ARGB_R(argb), "
                                                    "ARGB_G(argb),ARGB_B(argb),ARGB_A(argb))");
    Steps steps = logged("clear", "called \n");
    steps.push_back(fill);
    if (flip) {
        steps.push_back(call("Flip(null,NONE)", "m_surface->Flip(m_surface,NULL, DSFLIP_NONE)"));
        steps.push_back(fill);
    }
    return steps;
}

Steps Renderer::draw(const Keys& keys, const Keys& locked, bool flip) const
{
    Steps steps = logged("draw", "called\n", kDetail);
    if (m_font_height == kNoFont)
        return steps;
    steps = steps + clear(kBackground, false);
    for (const Button_t& key : keys)
        steps = steps + face(key, kNormalFill) +
                lines(key.rect, kShadow,
                      {"x+w,y,x+w,y+h", "x,y+h,x+w,y+h", "x+w-1,y,x+w-1,y+h", "x,y+h-1,x+w,y+h-1"});
    for (const Button_t& key : locked)
        steps = steps + sunkenKey(key);
    return steps + (flip ? flipWhole() : Steps()) + logged("draw", "done\n", kDetail);
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
    return logged("setfocus", "called \n") + draw(keys, locked, false) + frame(key) + flipWhole();
}

Steps Renderer::setLocked(const Keys& keys, const Keys& locked) const
{
    return logged("setLocked", "called \n") + draw(keys, locked, false) + flipWhole();
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
