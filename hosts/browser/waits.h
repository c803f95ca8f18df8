// Calls that wait for an answer of the page.
#ifndef HOSTS_BROWSER_WAITS_H
#define HOSTS_BROWSER_WAITS_H

#include <functional>
#include <map>

namespace host
{

// Each wait ends once: by its answer, or with all others when no answer will come.
class Waits
{
public:
    // done: is called at the end. Returns the wait's number.
    unsigned add(std::function<void()> done);

    void end(unsigned number);
    void endAll();

private:
    std::map<unsigned, std::function<void()>> m_waits; // by number
    unsigned m_last = 0;
};

} // namespace host

#endif
