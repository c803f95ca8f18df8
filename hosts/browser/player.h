// Plays sessions for tests and demonstrations.
#ifndef HOSTS_BROWSER_PLAYER_H
#define HOSTS_BROWSER_PLAYER_H

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "keyboard_model.h"
#include "planner.h"
#include "screen.h"

#include "browser.h"
#include "recording.h"
#include "steps.h"

namespace host
{

// Plays a session on the browser, step after step; each waits for the state that it names, none
// for a time.
class Player
{
public:
    struct Surroundings {
        const Screen& screen;
        const KeyboardModel& model;
        Browser& browser;
        Recording* recording; // or null
    };

    // done: gets what went wrong in a line, or an empty one when all steps were done. patience:
    // how many seconds a press or an awaited state may take.
    Player(const Surroundings& surroundings, std::vector<Step> steps, int patience,
           std::function<void(const std::string&)> done);
    Player(const Player&) = delete;
    Player& operator=(const Player&) = delete;

    void start();

private:
    void next();
    void begin(const Step& step);
    void bePatient();
    void finishStep();
    void fail(const std::string& awaited, const std::string& found);
    void load(const std::function<void()>& begin);
    void press(const std::string& key, int count);
    void press(const RemoteKey& key);
    void play(std::vector<Press> presses, std::function<void()> then);
    void type(const Plan& plan, std::function<void()> then);
    void choose();
    void await(std::function<bool()> isThere, std::function<std::string()> found);
    void check();
    void askForText();
    void takePicture();
    void show(int milliseconds, std::function<void()> then);

    const Surroundings m_with;
    std::vector<Step> m_steps;
    const int m_patience;
    std::function<void(const std::string&)> m_done;
    size_t m_next = 0;
    unsigned m_alarm = 0; // GLib's source for the end of patience
    unsigned m_turn = 0;  // grows with each step: answers to old ones are dropped
    std::string m_awaited;
    std::function<bool()> m_is_there;
    std::function<std::string()> m_found; // what is there instead
    std::string m_page_text;
};

} // namespace host

#endif
