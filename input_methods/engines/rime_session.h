#ifndef INPUT_METHODS_ENGINES_RIME_SESSION_H
#define INPUT_METHODS_ENGINES_RIME_SESSION_H

#include <cstddef>
#include <string>
#include <vector>

#include <rime_api.h>

namespace input_methods
{

// What is being composed by one of rime's schemas.
class RimeSession
{
public:
    // The schema is opened already, and taken over: rime shares it only for as long as it is open.
    RimeSession(RimeApi* api, RimeConfig schema, const std::string& name);
    ~RimeSession();
    RimeSession(const RimeSession&) = delete;
    RimeSession& operator=(const RimeSession&) = delete;

    // Returns whether the key, X's number of it, was used; adds what is finished to the commit.
    bool press(int key, std::string& commit);

    // Takes a candidate by its index in the whole list.
    void choose(size_t index, std::string& commit);

    // Returns how many bytes, at the beginning of what is added, are chosen candidates.
    size_t addPreedit(std::string& text) const;

    // At most count of them, from this index on.
    void addCandidates(size_t from, size_t count, std::vector<std::string>& found) const;

    void clear();

private:
    void addCommit(std::string& commit);

    RimeApi* m_api;
    RimeConfig m_schema;
    RimeSessionId m_session;
};

} // namespace input_methods

#endif
