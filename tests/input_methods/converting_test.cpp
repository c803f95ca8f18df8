// Languages whose words are chosen from a dictionary. Which word comes first may change with the
// dictionary's next version; these tests ask only for what must always hold.
#include <map>

#include <gmock/gmock.h>

#include "text.h"
#include "text_field.h"

namespace input_methods_test
{

using input_methods::InputMethod;
using input_methods::InputMethods;

namespace
{

const int kMostChoices = 3;
const int kMostPages = 3; // a word further behind is as good as missing

struct Word {
    const char* keys;
    const char* text;
};

struct Language {
    const char* layout;
    const char* reading; // what is typed in tests without words
    std::vector<Word> words;
};

std::string nameOfTest(const testing::TestParamInfo<Language>& tested)
{
    return tested.param.layout;
}

std::ostream& operator<<(std::ostream& stream, const Language& language)
{
    return stream << language.layout;
}

const Language kLanguages[] = {
    {"Chinese_Pinyin",
     "womenyiqikandianshi",
     {{"nihao", "你好"},    {"zhongguo", "中国"},  {"dianshi", "电视"},  {"wo", "我"},
      {"women", "我们"},    {"xiexie", "谢谢"},    {"zaijian", "再见"},  {"beijing", "北京"},
      {"shanghai", "上海"}, {"jintian", "今天"},   {"mingtian", "明天"}, {"zuotian", "昨天"},
      {"xianzai", "现在"},  {"shijian", "时间"},   {"pengyou", "朋友"},  {"laoshi", "老师"},
      {"xuesheng", "学生"}, {"xuexi", "学习"},     {"gongzuo", "工作"},  {"dianying", "电影"},
      {"yinyue", "音乐"},   {"xinwen", "新闻"},    {"tiyu", "体育"},     {"zuqiu", "足球"},
      {"tianqi", "天气"},   {"chifan", "吃饭"},    {"heshui", "喝水"},   {"shuiguo", "水果"},
      {"pingguo", "苹果"},  {"niunai", "牛奶"},    {"kafei", "咖啡"},    {"mama", "妈妈"},
      {"baba", "爸爸"},     {"haizi", "孩子"},     {"jia", "家"},        {"xuexiao", "学校"},
      {"yiyuan", "医院"},   {"shangdian", "商店"}, {"huoche", "火车"},   {"feiji", "飞机"},
      {"shouji", "手机"},   {"diannao", "电脑"},   {"wangluo", "网络"},  {"sousuo", "搜索"},
      {"shezhi", "设置"},   {"mima", "密码"},      {"pindao", "频道"},   {"jiemu", "节目"},
      {"yinliang", "音量"}, {"zhongwen", "中文"}}},
    {"Chinese_Traditional_Pinyin",
     "womenyiqikandianshi",
     {{"nihao", "你好"},     {"zhongguo", "中國"},  {"dianshi", "電視"},  {"wo", "我"},
      {"women", "我們"},     {"xiexie", "謝謝"},    {"zaijian", "再見"},  {"taibei", "臺北"},
      {"xianggang", "香港"}, {"jintian", "今天"},   {"mingtian", "明天"}, {"zuotian", "昨天"},
      {"xianzai", "現在"},   {"shijian", "時間"},   {"pengyou", "朋友"},  {"laoshi", "老師"},
      {"xuesheng", "學生"},  {"xuexi", "學習"},     {"gongzuo", "工作"},  {"dianying", "電影"},
      {"yinyue", "音樂"},    {"xinwen", "新聞"},    {"tiyu", "體育"},     {"zuqiu", "足球"},
      {"tianqi", "天氣"},    {"chifan", "吃飯"},    {"heshui", "喝水"},   {"shuiguo", "水果"},
      {"pingguo", "蘋果"},   {"niunai", "牛奶"},    {"kafei", "咖啡"},    {"mama", "媽媽"},
      {"baba", "爸爸"},      {"haizi", "孩子"},     {"jia", "家"},        {"xuexiao", "學校"},
      {"yiyuan", "醫院"},    {"shangdian", "商店"}, {"huoche", "火車"},   {"feiji", "飛機"},
      {"shouji", "手機"},    {"diannao", "電腦"},   {"wanglu", "網路"},   {"sousuo", "搜索"},
      {"shezhi", "設置"},    {"mima", "密碼"},      {"pindao", "頻道"},   {"jiemu", "節目"},
      {"yinliang", "音量"},  {"zhongwen", "中文"}}},
    {"Chinese_Zhuyin",
     "ㄨㄛˇㄇㄣ˙ㄧˋㄑㄧˇㄎㄢˋㄉㄧㄢˋㄕˋ",
     {{"ㄋㄧˇㄏㄠˇ", "你好"},     {"ㄊㄞˊㄨㄢ ", "台灣"},
      {"ㄉㄧㄢˋㄕˋ", "電視"},     {"ㄨㄛˇ", "我"},
      {"ㄨㄛˇㄇㄣ˙", "我們"},     {"ㄒㄧㄝˋㄒㄧㄝ˙", "謝謝"},
      {"ㄗㄞˋㄐㄧㄢˋ", "再見"},   {"ㄊㄞˊㄅㄟˇ", "台北"},
      {"ㄒㄧㄤ ㄍㄤˇ", "香港"},   {"ㄐㄧㄣ ㄊㄧㄢ ", "今天"},
      {"ㄇㄧㄥˊㄊㄧㄢ ", "明天"}, {"ㄗㄨㄛˊㄊㄧㄢ ", "昨天"},
      {"ㄒㄧㄢˋㄗㄞˋ", "現在"},   {"ㄕˊㄐㄧㄢ ", "時間"},
      {"ㄆㄥˊㄧㄡˇ", "朋友"},     {"ㄌㄠˇㄕ ", "老師"},
      {"ㄒㄩㄝˊㄕㄥ ", "學生"},   {"ㄒㄩㄝˊㄒㄧˊ", "學習"},
      {"ㄍㄨㄥ ㄗㄨㄛˋ", "工作"}, {"ㄉㄧㄢˋㄧㄥˇ", "電影"},
      {"ㄧㄣ ㄩㄝˋ", "音樂"},     {"ㄒㄧㄣ ㄨㄣˊ", "新聞"},
      {"ㄊㄧˇㄩˋ", "體育"},       {"ㄗㄨˊㄑㄧㄡˊ", "足球"},
      {"ㄊㄧㄢ ㄑㄧˋ", "天氣"},   {"ㄔ ㄈㄢˋ", "吃飯"},
      {"ㄏㄜ ㄕㄨㄟˇ", "喝水"},   {"ㄕㄨㄟˇㄍㄨㄛˇ", "水果"},
      {"ㄆㄧㄥˊㄍㄨㄛˇ", "蘋果"}, {"ㄋㄧㄡˊㄋㄞˇ", "牛奶"},
      {"ㄎㄚ ㄈㄟ ", "咖啡"},     {"ㄇㄚ ㄇㄚ ", "媽媽"},
      {"ㄅㄚˋㄅㄚ˙", "爸爸"},     {"ㄏㄞˊㄗ˙", "孩子"},
      {"ㄐㄧㄚ ", "家"},          {"ㄒㄩㄝˊㄒㄧㄠˋ", "學校"},
      {"ㄧ ㄩㄢˋ", "醫院"},       {"ㄕㄤ ㄉㄧㄢˋ", "商店"},
      {"ㄏㄨㄛˇㄔㄜ ", "火車"},   {"ㄈㄟ ㄐㄧ ", "飛機"},
      {"ㄕㄡˇㄐㄧ ", "手機"},     {"ㄉㄧㄢˋㄋㄠˇ", "電腦"},
      {"ㄨㄤˇㄌㄨˋ", "網路"},     {"ㄙㄡ ㄒㄩㄣˊ", "搜尋"},
      {"ㄕㄜˋㄉㄧㄥˋ", "設定"},   {"ㄇㄧˋㄇㄚˇ", "密碼"},
      {"ㄆㄧㄣˊㄉㄠˋ", "頻道"},   {"ㄐㄧㄝˊㄇㄨˋ", "節目"},
      {"ㄧㄣ ㄌㄧㄤˋ", "音量"},   {"ㄓㄨㄥ ㄨㄣˊ", "中文"}}},
    {"Cantonese",
     "ngodeijatcaitaidinsi",
     {{"neihou", "你好"},   {"mgoi", "唔該"},    {"hoenggong", "香港"}, {"ngo", "我"},
      {"ngodei", "我哋"},   {"dinsi", "電視"},   {"doze", "多謝"},      {"zoigin", "再見"},
      {"gamjat", "今日"},   {"tingjat", "聽日"}, {"kamjat", "琴日"},    {"jigaa", "而家"},
      {"sigaan", "時間"},   {"pangjau", "朋友"}, {"lousi", "老師"},     {"hoksaang", "學生"},
      {"hokzaap", "學習"},  {"gungzok", "工作"}, {"dinjing", "電影"},   {"jamngok", "音樂"},
      {"sanman", "新聞"},   {"taijuk", "體育"},  {"zukkau", "足球"},    {"tinhei", "天氣"},
      {"sikfaan", "食飯"},  {"jamseoi", "飲水"}, {"saanggwo", "生果"},  {"pinggwo", "蘋果"},
      {"ngaunaai", "牛奶"}, {"gaafe", "咖啡"},   {"maamaa", "媽媽"},    {"baabaa", "爸爸"},
      {"sailou", "細路"},   {"ukkei", "屋企"},   {"hokhaau", "學校"},   {"jijyun", "醫院"},
      {"soengdim", "商店"}, {"foce", "火車"},    {"feigei", "飛機"},    {"saugei", "手機"},
      {"dinnou", "電腦"},   {"monglok", "網絡"}, {"saucam", "搜尋"},    {"citding", "設定"},
      {"matmaa", "密碼"},   {"pandou", "頻道"},  {"zitmuk", "節目"},    {"jamloeng", "音量"},
      {"zungman", "中文"},  {"haa", "下"}}},
    {"Japanese",
     "nihongowohanasitai",
     {{"nihonn", "日本"},
      {"terebi", "テレビ"},
      {"konnichiha", "こんにちは"},
      {"arigatou", "ありがとう"},
      {"sayounara", "さようなら"},
      {"toukyou", "東京"},
      {"oosaka", "大阪"},
      {"kyou", "今日"},
      {"ashita", "明日"},
      {"kinou", "昨日"},
      {"ima", "今"},
      {"jikan", "時間"},
      {"tomodachi", "友達"},
      {"sensei", "先生"},
      {"gakusei", "学生"},
      {"benkyou", "勉強"},
      {"shigoto", "仕事"},
      {"eiga", "映画"},
      {"ongaku", "音楽"},
      {"nyu-su", "ニュース"},
      {"supo-tsu", "スポーツ"},
      {"sakka-", "サッカー"},
      {"tenki", "天気"},
      {"gohan", "ご飯"},
      {"mizu", "水"},
      {"kudamono", "果物"},
      {"ringo", "りんご"},
      {"gyuunyuu", "牛乳"},
      {"ko-hi-", "コーヒー"},
      {"okaasan", "お母さん"},
      {"otousan", "お父さん"},
      {"kodomo", "子供"},
      {"ie", "家"},
      {"gakkou", "学校"},
      {"byouin", "病院"},
      {"mise", "店"},
      {"densha", "電車"},
      {"hikouki", "飛行機"},
      {"denwa", "電話"},
      {"pasokon", "パソコン"},
      {"inta-netto", "インターネット"},
      {"kensaku", "検索"},
      {"settei", "設定"},
      {"pasuwa-do", "パスワード"},
      {"channneru", "チャンネル"},
      {"bangumi", "番組"},
      {"onryou", "音量"},
      {"nihongo", "日本語"},
      {"watashi", "私"},
      {"konna", "こんな"}}},
    {"Japanese_Kana",
     "にほんこ゛をはなしたい",
     {{"にほん", "日本"},
      {"てれひ゛", "テレビ"},
      {"こんにちは", "こんにちは"},
      {"ありか゛とう", "ありがとう"},
      {"さようなら", "さようなら"},
      {"とうきょう", "東京"},
      {"おおさか", "大阪"},
      {"きょう", "今日"},
      {"あした", "明日"},
      {"きのう", "昨日"},
      {"いま", "今"},
      {"し゛かん", "時間"},
      {"ともた゛ち", "友達"},
      {"せんせい", "先生"},
      {"か゛くせい", "学生"},
      {"へ゛んきょう", "勉強"},
      {"しこ゛と", "仕事"},
      {"えいか゛", "映画"},
      {"おんか゛く", "音楽"},
      {"にゅーす", "ニュース"},
      {"すほ゜ーつ", "スポーツ"},
      {"さっかー", "サッカー"},
      {"てんき", "天気"},
      {"こ゛はん", "ご飯"},
      {"みす゛", "水"},
      {"くた゛もの", "果物"},
      {"りんこ゛", "りんご"},
      {"き゛ゅうにゅう", "牛乳"},
      {"こーひー", "コーヒー"},
      {"おかあさん", "お母さん"},
      {"おとうさん", "お父さん"},
      {"こと゛も", "子供"},
      {"いえ", "家"},
      {"か゛っこう", "学校"},
      {"ひ゛ょういん", "病院"},
      {"みせ", "店"},
      {"て゛んしゃ", "電車"},
      {"ひこうき", "飛行機"},
      {"て゛んわ", "電話"},
      {"は゜そこん", "パソコン"},
      {"いんたーねっと", "インターネット"},
      {"けんさく", "検索"},
      {"せってい", "設定"},
      {"は゜すわーと゛", "パスワード"},
      {"ちゃんねる", "チャンネル"},
      {"は゛んく゛み", "番組"},
      {"おんりょう", "音量"},
      {"にほんこ゛", "日本語"},
      {"わたし", "私"},
      {"こんな", "こんな"}}},
};

class Converting : public testing::TestWithParam<Language>
{
protected:
    void SetUp() override
    {
        InputMethod* method = find(*m_methods, GetParam().layout);
        ASSERT_NE(method, nullptr);
        m_field = std::make_unique<TextField>(*method);
    }

    // The state belongs to the process, which may go on to the next test.
    void TearDown() override
    {
        if (m_field != nullptr)
            m_field->reset();
    }

    TextField& field() { return *m_field; }
    InputMethod& method() { return *find(*m_methods, GetParam().layout); }

    // Chooses the longest candidate that the text goes on with. Returns its length, or 0.
    size_t chooseTowards(const std::string& rest)
    {
        for (int page = 0; page < kMostPages; ++page) {
            const std::vector<std::string> candidates = field().last().candidates;
            size_t best = candidates.size();
            for (size_t i = 0; i < candidates.size(); ++i)
                if (rest.compare(0, candidates[i].size(), candidates[i]) == 0 &&
                    (best == candidates.size() || candidates[i].size() > candidates[best].size()))
                    best = i;
            if (best < candidates.size()) {
                field().choose(static_cast<int>(best) + 1);
                return candidates[best].size();
            }
            if (!field().page(1).used)
                return 0;
        }
        return 0;
    }

private:
    std::vector<std::string> m_lines;
    std::unique_ptr<InputMethods> m_methods = shipped(m_lines);
    std::unique_ptr<TextField> m_field;
};

TEST_P(Converting, ReachesEverydayWordsInThreeChoices)
{
    ASSERT_GE(GetParam().words.size(), 50u);
    for (const Word& word : GetParam().words) {
        field().clear();
        field().type(word.keys);
        std::string rest = word.text;
        for (int choice = 0; choice < kMostChoices && !rest.empty(); ++choice)
            rest.erase(0, chooseTowards(rest));
        EXPECT_EQ(field().text(), word.text) << word.keys;
        field().reset();
    }
}

TEST_P(Converting, AsManyBacksAsLettersLeaveNothing)
{
    const std::vector<std::string> keys = characters(GetParam().reading);
    field().type("A");
    for (const std::string& key : keys)
        EXPECT_TRUE(field().type(key).used) << key;
    for (size_t i = 0; i < keys.size() && !field().last().preedit.empty(); ++i)
        field().press(kBack);
    EXPECT_EQ(field().last().preedit, "");
    EXPECT_TRUE(field().last().candidates.empty());
    EXPECT_EQ(field().text(), "A");
}

TEST_P(Converting, FinishingLosesNothing)
{
    for (const std::string& key : characters(GetParam().reading)) {
        field().type(key);
        EXPECT_EQ(field().fault(), "");
    }
    std::string preedit = field().last().preedit;
    for (size_t blank; (blank = preedit.find(' ')) != std::string::npos;)
        preedit.erase(blank, 1); // rime shows one between syllables
    field().finish();
    EXPECT_EQ(field().text(), preedit);
    EXPECT_EQ(field().last().preedit, "");
}

TEST_P(Converting, TakingTheFirstEndsWithNothingComposed)
{
    field().type(GetParam().reading);
    int choices = 0;
    while (!field().last().candidates.empty() && choices < input_methods::kMaxPreedit) {
        field().choose(1);
        EXPECT_EQ(field().fault(), "");
        ++choices;
    }
    EXPECT_GT(choices, 0);
    EXPECT_EQ(field().last().preedit, "");
    EXPECT_NE(field().text(), "");
}

TEST_P(Converting, TheCommitBeginsWithWhatWasChosen)
{
    for (int number = 1; number <= input_methods::kPageCandidates; ++number) {
        field().clear();
        field().type(GetParam().reading);
        const std::vector<std::string> candidates = field().last().candidates;
        if (static_cast<size_t>(number) > candidates.size())
            break;
        field().choose(number);
        field().finish();
        const std::string& chosen = candidates[static_cast<size_t>(number) - 1];
        EXPECT_EQ(field().text().substr(0, chosen.size()), chosen);
    }
}

TEST_P(Converting, TwoRunsAgree)
{
    std::vector<std::string> runs[2];
    for (std::vector<std::string>& run : runs) {
        field().clear();
        for (const std::string& key : characters(GetParam().reading))
            for (const std::string& candidate : field().type(key).candidates)
                run.push_back(candidate);
        field().choose(2);
        field().finish();
        run.push_back(field().text());
    }
    EXPECT_EQ(runs[0], runs[1]);
}

TEST_P(Converting, ComposesNoMoreThanTheLimit)
{
    const size_t most = input_methods::kMaxPreedit + 1; // rime shows a blank between syllables
    for (int i = 0; i < 10; ++i) {
        field().type(GetParam().reading);
        EXPECT_LE(input_methods::letters(field().last().preedit), most);
    }
    EXPECT_NE(field().text(), "");
}

// Nobody knows before which word comes first.
TEST_P(Converting, SpellsNothing)
{
    const Word& word = GetParam().words.front();
    EXPECT_EQ(method().spell(word.text), "");
}

INSTANTIATE_TEST_SUITE_P(, Converting, testing::ValuesIn(kLanguages), nameOfTest);

// More letters than are composed at once, with nothing chosen on the way.
TEST(LongRows, AreOfWholeWords)
{
    std::vector<std::string> lines;
    const std::unique_ptr<InputMethods> methods = shipped(lines);
    const std::map<std::string, std::string> words = {{"Chinese_Pinyin", "nihao"},
                                                      {"Chinese_Traditional_Pinyin", "nihao"},
                                                      {"Cantonese", "neihou"}};
    for (const auto& word : words) {
        InputMethod* method = find(*methods, word.first);
        ASSERT_NE(method, nullptr);
        TextField once(*method);
        once.type(word.second);
        once.choose(1);
        TextField field(*method);
        std::string expected;
        for (int i = 0; i < 12; ++i) {
            field.type(word.second);
            expected += once.text();
        }
        field.choose(1);
        EXPECT_EQ(field.text(), expected);
        EXPECT_EQ(field.last().preedit, "");
    }
}

using Japanese = Converting;

bool isKatakana(const std::string& text)
{
    const std::vector<std::string> all = characters(text);
    return std::all_of(all.begin(), all.end(), [](const std::string& character) {
        return character >= "ァ" && character <= "ー";
    });
}

TEST_P(Japanese, AlwaysOffersBothKana)
{
    for (const std::string& key : characters(GetParam().reading)) {
        field().type(key);
        const std::string reading = field().last().preedit;
        if (reading.find_first_of("abcdefghijklmnopqrstuvwxyz") != std::string::npos)
            continue;
        std::vector<std::string> all = field().last().candidates;
        while (field().page(1).used)
            all.insert(all.end(), field().last().candidates.begin(),
                       field().last().candidates.end());
        EXPECT_THAT(all, testing::Contains(reading));
        EXPECT_THAT(all, testing::Contains(testing::ResultOf(isKatakana, true))) << reading;
    }
}

INSTANTIATE_TEST_SUITE_P(, Japanese,
                         testing::Values(kLanguages[std::size(kLanguages) - 2],
                                         kLanguages[std::size(kLanguages) - 1]),
                         nameOfTest);

struct Spelling {
    const char* romaji;
    const char* kana;
};

const Spelling kSpellings[] = {{"ka", "か"},        {"kyakyukyo", "きゃきゅきょ"},
                               {"shi", "し"},       {"si", "し"},
                               {"tsu", "つ"},       {"tu", "つ"},
                               {"chi", "ち"},       {"ti", "ち"},
                               {"fu", "ふ"},        {"hu", "ふ"},
                               {"ji", "じ"},        {"zi", "じ"},
                               {"ja", "じゃ"},      {"jo", "じょ"},
                               {"sha", "しゃ"},     {"cha", "ちゃ"},
                               {"kitte", "きって"}, {"zasshi", "ざっし"},
                               {"matchi", "まtち"}, {"hon", "ほn"},
                               {"honn", "ほん"},    {"hon'ya", "ほんや"},
                               {"konna", "こんな"}, {"konnnichi", "こんにち"},
                               {"kinen", "きねn"},  {"kin'en", "きんえn"},
                               {"sanpo", "さんぽ"}, {"minna", "みんな"},
                               {"ke-ki", "けーき"}, {"xtu", "っ"},
                               {"la", "ぁ"},        {"thi", "てぃ"},
                               {"dhi", "でぃ"},     {"va", "ゔぁ"},
                               {"wi", "うぃ"},      {"wo", "を"},
                               {"n", "n"},          {"nn", "ん"},
                               {"nna", "んな"},     {"nnka", "んか"},
                               {"nya", "にゃ"},     {"nnya", "んにゃ"},
                               {"desu.", "です。"}, {"a,b", "あ、b"}};

TEST(Romaji, BecomesKana)
{
    std::vector<std::string> lines;
    const std::unique_ptr<InputMethods> methods = shipped(lines);
    InputMethod* method = find(*methods, "Japanese");
    ASSERT_NE(method, nullptr);
    for (const Spelling& spelling : kSpellings) {
        TextField field(*method);
        field.type(spelling.romaji);
        field.finish();
        EXPECT_EQ(field.text(), spelling.kana) << spelling.romaji;
    }
}

// A word at the beginning is chosen: the n behind it may become another kana than ん.
TEST(Romaji, GoesOnBehindAChosenWord)
{
    std::vector<std::string> lines;
    const std::unique_ptr<InputMethods> methods = shipped(lines);
    InputMethod* method = find(*methods, "Japanese");
    ASSERT_NE(method, nullptr);
    int words = 0;
    for (int number = 1; number <= input_methods::kPageCandidates; ++number) {
        TextField field(*method);
        field.type("watashihan");
        field.choose(number);
        if (field.last().preedit.empty())
            continue;
        ++words;
        EXPECT_THAT(field.last().preedit, testing::EndsWith("n"));
        EXPECT_THAT(field.type("i").preedit, testing::EndsWith("に"));
        field.reset();
    }
    EXPECT_GT(words, 0);
}

} // namespace

} // namespace input_methods_test
