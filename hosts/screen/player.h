// Plays presses on the form as a viewer would, and records them.
#ifndef HOSTS_SCREEN_PLAYER_H
#define HOSTS_SCREEN_PLAYER_H

#include <memory>
#include <string>
#include <vector>

#include "planner.h"
#include "recorder.h"

#include "form.h"

namespace host
{

class Player
{
public:
    // form and screen are lent. Without a file to record to it plays at a viewer's pace. Throws
    // std::runtime_error for a file that cannot be made.
    Player(Form& form, const Screen& screen, const std::vector<std::string>& files);

    // Enters the field, plays the plan and ends the form. A recording is complete then.
    Form::Progress play(const Plan& plan);

private:
    Form::Progress press(const RemoteKey& key, int litMilliseconds, int darkMilliseconds);
    void show(int milliseconds);

    Form& m_form;
    const Screen& m_screen;
    std::vector<std::unique_ptr<Recorder>> m_recorders;
};

} // namespace host

#endif
