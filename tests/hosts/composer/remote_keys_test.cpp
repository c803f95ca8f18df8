// Composed and converted text with the remote control's keys alone, through the real keyboard.
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <map>

#include <gtest/gtest.h>

#include "composer.h"
#include "keyboard_constants.h"
#include "keyboard_host.h"
#include "planner.h"
#include "screen.h"
#include "text_line.h"

namespace
{

namespace fs = std::filesystem;
using namespace host;

const char kPlaces[] = "usr/local/opt/nerovista/resources/";

// The shipped layouts of these names, where the keyboard looks for them.
class Television
{
public:
    explicit Television(const std::vector<std::string>& layouts)
    {
        std::string name = (fs::temp_directory_path() / "composer-test-XXXXXX").string();
        m_root = ::mkdtemp(name.data());
        const fs::path folder = m_root / kPlaces / "oskeyboard_config";
        const fs::path shipped = fs::path(RESOURCES) / "oskeyboard_config";
        fs::create_directories(folder);
        std::ifstream file(shipped / "Language_Name.json");
        std::string catalogue((std::istreambuf_iterator<char>(file)),
                              std::istreambuf_iterator<char>());
        std::string names;
        for (const std::string& layout : layouts) {
            names += (names.empty() ? "\"" : ", \"") + layout + "\"";
            const std::string key_map = "Language_" + layout + ".json";
            fs::create_symlink(shipped / key_map, folder / key_map);
        }
        const size_t from = catalogue.find('[', catalogue.find("\"language\"")) + 1;
        catalogue.replace(from, catalogue.find(']') - from, names);
        std::ofstream(folder / "Language_Name.json") << catalogue;
        ::setenv("VKB_TEST_ROOT", m_root.c_str(), 1);
    }

    ~Television() { fs::remove_all(m_root); }

    std::string tables(const std::string& lines) const
    {
        std::ofstream(m_root / "layouts.tsv") << lines;
        return m_root;
    }

private:
    fs::path m_root;
};

const Screen& screen()
{
    static const Screen::Option kOptions[] = {
        {"system", "dummy"},    {"mode", "1920x1080"},      {"quiet", nullptr},
        {"no-cursor", nullptr}, {"no-sighandler", nullptr}, {"no-deinit-check", nullptr},
        {nullptr, nullptr},
    };
    static Screen opened(kOptions);
    return opened;
}

class RemoteKeys : public testing::Test
{
protected:
    void start(const std::vector<std::string>& layouts, const std::string& tables = "")
    {
        m_television = std::make_unique<Television>(layouts);
        ::setenv("VIRTUAL_KEYBOARD_FONT_PATH", VKB_BAR_FONT, 1);
        m_model = std::make_unique<KeyboardModel>(installedLayouts());
        input_methods::Settings settings;
        settings.dataFolder =
            tables.empty() ? RESOURCES "/input_methods" : m_television->tables(tables);
        settings.report = [this](const std::string& line) { m_lines.push_back(line); };
        m_composer = std::make_unique<Composer>(screen(), VKB_BAR_FONT, settings);
        m_keyboard = std::make_unique<KeyboardHost>(screen(), m_model.get(), m_composer.get());
        ASSERT_TRUE(m_keyboard->show());
    }

    void TearDown() override
    {
        if (m_keyboard != nullptr)
            m_keyboard->end();
    }

    KeyboardHost::Answer remote(int code)
    {
        KeyboardHost::Answer answer = m_keyboard->press(code);
        applyAnswer(answer, m_line);
        return answer;
    }

    KeyboardHost::Answer remote(Press press) { return remote(static_cast<int>(press)); }

    // Moves the focus to the key that shows this text, and presses it.
    KeyboardHost::Answer key(const std::string& text)
    {
        const std::vector<Press> way = wayTo(text);
        EXPECT_TRUE(labelAtEnd(way) == text) << text << ": no such key on this face";
        for (const Press press : way)
            remote(press);
        return remote(Press::Ok);
    }

    void keys(const std::vector<std::string>& texts)
    {
        for (const std::string& text : texts)
            key(text);
    }

    std::string text() const { return m_line.text(); }
    void clear() { m_line.clear(); }
    const KeyboardModel& model() const { return *m_model; }
    std::string preedit() const { return m_keyboard->preedit(); }
    Composer& composer() { return *m_composer; }
    KeyboardHost& keyboard() { return *m_keyboard; }
    std::vector<std::string>& lines() { return m_lines; }

private:
    std::string labelAtEnd(const std::vector<Press>& way) const
    {
        KeyboardState state = m_keyboard->state();
        for (const Press press : way)
            state = m_model->after(state, press).state;
        return m_model->focused(state)->text;
    }

    // The shortest, without a step up from the top row.
    std::vector<Press> wayTo(const std::string& text) const
    {
        std::map<int, std::vector<Press>> ways = {{m_keyboard->state().key, {}}};
        std::vector<int> queue = {m_keyboard->state().key};
        for (size_t head = 0; head < queue.size(); ++head) {
            KeyboardState state = m_keyboard->state();
            state.key = queue[head];
            if (m_model->focused(state)->text == text)
                return ways[state.key];
            for (const Press press : {Press::Left, Press::Right, Press::Down}) {
                const int next = m_model->after(state, press).state.key;
                if (ways.count(next) != 0)
                    continue;
                ways[next] = ways[state.key];
                ways[next].push_back(press);
                queue.push_back(next);
            }
        }
        return {};
    }

    std::unique_ptr<Television> m_television;
    std::unique_ptr<KeyboardModel> m_model;
    std::unique_ptr<Composer> m_composer;
    std::unique_ptr<KeyboardHost> m_keyboard;
    TextLine m_line;
    std::vector<std::string> m_lines;
};

// Three pages: nine, nine and two.
const char kManyCandidates[] = "Chinese_Pinyin\tscripted\tA B C D E F G H I J K L M N O P Q R S T"
                               "\tyes\tnone\n";

TEST_F(RemoteKeys, TypeKorean)
{
    start({"Korean"});
    keys({"ㅎ", "ㅏ", "ㄴ", "ㄱ", "ㅡ", "ㄹ"});
    EXPECT_EQ(text(), "한");
    EXPECT_EQ(preedit(), "글");
    EXPECT_TRUE(key("Enter").submits());
    EXPECT_EQ(text(), "한글");
    EXPECT_EQ(preedit(), "");
}

TEST_F(RemoteKeys, TypeChinese)
{
    start({"Chinese_Pinyin"});
    keys({"n", "i", "h", "a", "o", " "});
    EXPECT_EQ(text(), "你好");
    EXPECT_FALSE(composer().offers());
}

TEST_F(RemoteKeys, TypeJapanese)
{
    start({"Japanese"});
    keys({"n", "i", "h", "o", "n", "n", "1"});
    EXPECT_EQ(text(), "日本");
}

struct Word {
    const char* layout;
    std::vector<std::string> keys; // by their labels
    const char* text;
};

std::ostream& operator<<(std::ostream& stream, const Word& word)
{
    return stream << word.layout;
}

// What stands on a layout's keys must be what its engine takes.
const Word kWords[] = {
    {"Amharic", {"s", "e", "l", "a", "m"}, "ሰላም"},
    {"Cantonese", {"n", "e", "i", "h", "o", "u", " "}, "你好"},
    {"Cherokee", {"t", "s", "a", "l", "a", "g", "i"}, "ᏣᎳᎩ"},
    {"Chinese_Traditional_Pinyin", {"d", "i", "a", "n", "s", "h", "i", " "}, "電視"},
    {"Chinese_Zhuyin", {"ㄋ", "ㄧ", "ˇ", "ㄏ", "ㄠ", "ˇ", " "}, "你好"},
    {"Japanese_Kana", {"ニ", "ホ", "ン", "コ", "゛", " "}, "日本語"},
    {"Tigrinya", {"s", "e", "l", "a", "m"}, "ሰላም"},
    {"Vai", {"v", "a", "i"}, "ꕙꔤ"},
    {"Vietnamese_Telex", {"t", "i", "e", "e", "n", "g", "s"}, "tiếng"},
    {"Yi", {"n", "u", "o"}, "ꆈ"},
};

class RemoteKeysOfALayout : public RemoteKeys, public testing::WithParamInterface<Word>
{
};

TEST_P(RemoteKeysOfALayout, TypeAWord)
{
    start({GetParam().layout});
    keys(GetParam().keys);
    EXPECT_TRUE(key("Enter").submits());
    EXPECT_EQ(text(), GetParam().text);
    EXPECT_TRUE(lines().empty());
}

INSTANTIATE_TEST_SUITE_P(, RemoteKeysOfALayout, testing::ValuesIn(kWords),
                         [](const testing::TestParamInfo<Word>& word) {
                             return word.param.layout;
                         });

TEST_F(RemoteKeys, DigitsOfRemoteAndLayoutChoose)
{
    start({"Chinese_Pinyin"}, kManyCandidates);
    key("a");
    EXPECT_TRUE(remote('3').taken);
    EXPECT_EQ(text(), "C");
    EXPECT_FALSE(remote('3').taken); // nothing to choose: the page's
    keys({"a", "2"});
    EXPECT_EQ(text(), "CB");
}

TEST_F(RemoteKeys, CaretKeysOfTheLayoutTurnPages)
{
    start({"Chinese_Pinyin"}, kManyCandidates);
    keys({"a", "→"});
    EXPECT_EQ(composer().shown().candidates[0], "J");
    key("←");
    EXPECT_EQ(composer().shown().candidates[0], "A");
    EXPECT_EQ(text(), "");
}

TEST_F(RemoteKeys, BackShortens)
{
    start({"Chinese_Pinyin"}, kManyCandidates);
    keys({"a", "b", "Back"});
    EXPECT_EQ(preedit(), "a");
    key("Back");
    EXPECT_EQ(preedit(), "");
    EXPECT_FALSE(composer().offers());
}

TEST_F(RemoteKeys, UpFromTheTopRowGoesToTheCandidates)
{
    start({"Chinese_Pinyin"}, kManyCandidates);
    keys({"a", "`"}); // the backquote is in the top row, and commits
    EXPECT_EQ(text(), "a`");
    key("q");
    keys({"a", "s"});
    remote(Press::Up);
    EXPECT_FALSE(composer().isInBar());
    remote(Press::Up);
    remote(Press::Up);
    EXPECT_TRUE(composer().isInBar());
    EXPECT_EQ(composer().focus(), 0);
    remote(Press::Right);
    EXPECT_EQ(composer().focus(), 1);
    remote(Press::Left);
    remote(Press::Left); // there is nothing before the first
    EXPECT_EQ(composer().focus(), 0);
    for (int i = 0; i < 9; ++i)
        remote(Press::Right);
    EXPECT_EQ(composer().shown().candidates[0], "J");
    EXPECT_EQ(composer().focus(), 0);
    remote(Press::Left);
    EXPECT_EQ(composer().shown().candidates[0], "A");
    EXPECT_EQ(composer().focus(), 8);
    remote(Press::Down);
    EXPECT_FALSE(composer().isInBar());
    EXPECT_TRUE(composer().offers());
}

TEST_F(RemoteKeys, TabGoesToTheCandidatesAndOkTakesOne)
{
    start({"Chinese_Pinyin"}, kManyCandidates);
    keys({"a", "Tab"});
    EXPECT_TRUE(composer().isInBar());
    remote(Press::Right);
    remote(Press::Ok);
    EXPECT_EQ(text(), "B");
    EXPECT_FALSE(composer().isInBar());
    EXPECT_FALSE(keyboard().leaveCandidates());
}

TEST_F(RemoteKeys, BackOfTheRemoteLeavesTheCandidates)
{
    start({"Chinese_Pinyin"}, kManyCandidates);
    keys({"a", "Tab"});
    EXPECT_TRUE(keyboard().leaveCandidates());
    EXPECT_FALSE(composer().isInBar());
    EXPECT_TRUE(keyboard().isShown());
    EXPECT_EQ(preedit(), "a");
}

TEST_F(RemoteKeys, TheLanguageKeyInTheMiddleOfAWordCommitsIt)
{
    start({"Korean", "English"});
    keys({"ㅎ", "ㅏ", "한국"}); // the last is the language key
    EXPECT_EQ(text(), "하");
    EXPECT_EQ(preedit(), "");
    key("a");
    EXPECT_EQ(text(), "하a");
}

TEST_F(RemoteKeys, HidingInTheMiddleOfAWordCommitsIt)
{
    start({"Korean"});
    keys({"ㅎ", "ㅏ", "Hide"});
    EXPECT_EQ(text(), "하");
    EXPECT_EQ(preedit(), "");
    EXPECT_FALSE(keyboard().isShown());
    ASSERT_TRUE(keyboard().show());
    keys({"ㄴ", "ClearAll"});
    EXPECT_EQ(text(), "");
    EXPECT_EQ(preedit(), "");
}

TEST_F(RemoteKeys, AFieldThatIsLeftGetsTheWord)
{
    start({"Korean"});
    keys({"ㅎ", "ㅏ"});
    EXPECT_EQ(keyboard().hide().text, "하");
}

// By the fewest presses of the remote control.
TEST_F(RemoteKeys, TypeWhatIsPlanned)
{
    struct {
        std::vector<std::string> layouts;
        std::string text;
    } const kTexts[] = {
        {{"Korean"}, "안녕하세요, 값진 과일 ㅋㅋ!"},
        {{"English", "Korean"}, "Hi 한국 (Korea)."},
        {{"Amharic"}, "ሰላም ኢትዮጵያ"},
        {{"Yi"}, "ꆈꌠꁱꂷ"},
        {{"English", "Amharic"}, "selam ሰላም"},
        {{"Vietnamese_Telex"}, "Tiếng Việt, đường 9"},
        {{"English", "Vietnamese_Telex"}, "Tiếng Việt"},
        {{"Vietnamese"}, "Tiếng Việt"},
    };
    for (const auto& wanted : kTexts) {
        start(wanted.layouts);
        const Spelling spelling(model(), RESOURCES "/input_methods");
        const Plan plan = planComposing(model(), spelling, keyboard().state(), wanted.text);
        EXPECT_TRUE(plan.possible) << wanted.text;
        KeyboardHost::Answer last;
        for (const Press press : plan.presses)
            last = remote(press);
        EXPECT_EQ(text(), wanted.text);
        EXPECT_TRUE(last.submits()) << wanted.text;
        keyboard().end();
        clear();
    }
}

TEST_F(RemoteKeys, WhatNobodyCanTypeIsNamed)
{
    start({"English", "Korean"});
    const Spelling spelling(model(), RESOURCES "/input_methods");
    const Plan plan = planComposing(model(), spelling, keyboard().state(), "Hi 한漢");
    EXPECT_FALSE(plan.possible);
    EXPECT_EQ(plan.obstacle, "漢");
}

TEST_F(RemoteKeys, APasswordIsNotComposed)
{
    start({"Korean"});
    composer().enterField(input_methods::Field::Password);
    keys({"ㅎ", "ㅏ"});
    EXPECT_EQ(text(), "ㅎㅏ");
    composer().enterField(input_methods::Field::Text);
    keys({"ㅎ", "ㅏ"});
    EXPECT_EQ(preedit(), "하");
}

TEST_F(RemoteKeys, WithoutItsEngineALayoutTypesItsKeys)
{
    start({"Korean"}, "Korean\tnosuch\t2\tno\tlibnosuch1\n");
    keys({"ㅎ", "ㅏ"});
    EXPECT_EQ(text(), "ㅎㅏ");
    ASSERT_EQ(lines().size(), 1u);
    EXPECT_NE(lines()[0].find("install libnosuch1"), std::string::npos) << lines()[0];
}

} // namespace
