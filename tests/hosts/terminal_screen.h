#ifndef TESTS_HOSTS_TERMINAL_SCREEN_H
#define TESTS_HOSTS_TERMINAL_SCREEN_H

#include <cstdint>
#include <map>
#include <set>
#include <string>
#include <vector>

// A small terminal: what a program's output shows on it, and what it answers. As much of the
// standard sequences, of sixel and of the kitty graphics protocol as the terminal host may use.
class TerminalScreen
{
public:
    struct Kind {
        bool isUtf8 = true;
        bool answers = true;
        bool showsSixel = false;
        int sixelLimit = 1000; // pixels, wide and high
    };
    explicit TerminalScreen(const Kind& kind) : m_kind(kind) {}
    TerminalScreen() : TerminalScreen(Kind()) {}

    void resize(int columns, int rows);
    void feed(const std::string& bytes);

    // What the terminal has to say since the last call.
    std::string takeAnswers();

    // The text of a row, from 1, without blanks at its end. The focused key and other colours are
    // not in it.
    std::string row(int number) const;

    // The parameters of all sequences that changed how text looks.
    const std::set<std::string>& looks() const { return m_looks; }

    bool isOwnScreen() const { return m_own_screen; }
    bool isCursorShown() const { return m_cursor_shown; }
    int cursorColumn() const { return m_column; }

    struct Image {
        int row, column;   // of its top left corner, from 1
        int width, height; // pixels
        std::vector<uint8_t> rgb;
    };
    // Of kitty's by their numbers, of sixel's by the order in which their places were first taken.
    const std::map<int, Image>& images() const { return m_images; }

    // Images that were taken away before another one came to their place.
    int removals() const { return m_removals; }

    // Sequences that no terminal of this kind knows, and images beyond its limits.
    const std::vector<std::string>& faults() const { return m_faults; }

private:
    void put(const std::string& character);
    void control(char byte);
    void sequence(const std::string& parameters, char final);
    void setMode(const std::string& mode, bool on);
    void string(const std::string& text);
    void sixel(const std::string& data);
    void kitty(const std::string& command);
    void show(int number, const Image& image);
    void clear(int fromRow, int fromColumn);

    enum class State { Ground, Escape, Csi, String, StringEscape };

    Kind m_kind;
    State m_state = State::Ground;
    std::string m_collected;
    std::string m_character;
    std::string m_answers;
    std::map<int, std::map<int, std::string>> m_cells; // by row, by column
    std::map<int, Image> m_images;
    std::map<std::string, std::string> m_command; // the kitty command that is under way
    std::string m_payload;
    std::vector<std::string> m_faults;
    std::set<std::string> m_looks;
    int m_columns = 80;
    int m_rows = 24;
    int m_row = 1;
    int m_column = 1;
    int m_removals = 0;
    bool m_own_screen = false;
    bool m_cursor_shown = true;
};

#endif
