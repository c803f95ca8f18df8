// The candidates of an input method, in a window of its own right above the keyboard.
#ifndef HOSTS_SHARED_CANDIDATE_BAR_H
#define HOSTS_SHARED_CANDIDATE_BAR_H

#include <string>

#include <directfb.h>

#include "input_method.h"

namespace host
{

class Screen;

class CandidateBar
{
public:
    static constexpr int kHeight = 84; // pixels; it ends where the keyboard begins
    static constexpr int kNoFocus = -1;

    // screen is lent. A font that DirectFB cannot load ends the process with its message.
    CandidateBar(const Screen& screen, const std::string& font, int width);
    CandidateBar(const CandidateBar&) = delete;
    CandidateBar& operator=(const CandidateBar&) = delete;

    // What is composed, above the candidates with their numbers; an arrow at an end where there
    // are more. focus: the candidate with the focus frame, from 0, or kNoFocus.
    void show(const input_methods::Answer& answer, int focus);
    void hide();
    bool isShown() const { return m_is_shown; }

private:
    void openWindow();
    void drawCandidate(const std::string& text, int number, bool isFocused, int& x);
    void drawArrow(const char* arrow, int x);

    const Screen& m_screen;
    int m_width; // pixels
    IDirectFBFont* m_small;
    IDirectFBFont* m_large;
    IDirectFBWindow* m_window = nullptr; // made when it is first shown, kept for the process
    IDirectFBSurface* m_surface = nullptr;
    bool m_is_shown = false;
};

} // namespace host

#endif
