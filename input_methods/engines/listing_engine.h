#ifndef INPUT_METHODS_ENGINES_LISTING_ENGINE_H
#define INPUT_METHODS_ENGINES_LISTING_ENGINE_H

#include <string>
#include <vector>

#include "engine.h"

namespace input_methods
{

// An engine that finds all candidates at once: when they are first asked for after a change.
class ListingEngine : public Engine
{
public:
    bool converts() const override { return true; }
    void addCandidates(size_t from, size_t count, std::vector<std::string>& found) override;
    void take(size_t index, Answer& answer) override;

protected:
    struct Candidate {
        std::string text;
        size_t length; // so much of what is composed, from its beginning, as the engine counts it
        int number;    // the engine's own
    };

    // Offers all candidates, the best first.
    virtual void list() = 0;

    // A candidate goes into the page: learns it, and drops what it stands for.
    virtual void use(const Candidate& candidate) = 0;

    // No text twice: isOffered looks through all that were offered since the last change.
    void offer(Candidate candidate);
    bool isOffered(const std::string& text) const;

    // What is composed has changed.
    void forgetList() { m_all.clear(); }

private:
    const std::vector<Candidate>& all();

    std::vector<Candidate> m_all; // empty until they are asked for
};

} // namespace input_methods

#endif
