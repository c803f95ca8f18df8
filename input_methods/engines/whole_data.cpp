// Reads of each dictionary's form as much as tells where its file must end.
#include "whole_data.h"

#include <algorithm>
#include <cstdint>
#include <filesystem>
#include <fstream>
#include <iterator>

namespace input_methods
{

namespace
{

enum class Order { Little, Big };

// Numbers in a file; beyond its end they are 0, and the file is not whole. A folder in its place
// opens as a stream and has no end.
class Bytes
{
public:
    Bytes(const std::string& file, Order order, size_t most = SIZE_MAX) : m_order(order)
    {
        std::ifstream stream(file, std::ios::binary | std::ios::ate);
        std::error_code error;
        if (!stream || !std::filesystem::is_regular_file(file, error))
            return;
        m_size = static_cast<size_t>(stream.tellg());
        m_bytes.resize(std::min(m_size, most));
        stream.seekg(0);
        stream.read(&m_bytes[0], static_cast<std::streamsize>(m_bytes.size()));
    }

    Bytes(const std::string& file, Order order, size_t from, size_t length) : m_order(order)
    {
        std::ifstream stream(file, std::ios::binary);
        stream.seekg(static_cast<std::streamoff>(from));
        m_bytes.resize(length);
        stream.read(&m_bytes[0], static_cast<std::streamsize>(length));
        m_bytes.resize(static_cast<size_t>(stream.gcount()));
    }

    size_t size() const { return m_size; }

    uint32_t number(size_t position, size_t length = 4) const
    {
        uint32_t value = 0;
        if (position + length > m_bytes.size())
            return 0;
        for (size_t i = 0; i < length; ++i) {
            const size_t at = m_order == Order::Big ? i : length - 1 - i;
            value = value << 8 | static_cast<unsigned char>(m_bytes[position + at]);
        }
        return value;
    }

    // rime's pointers count from where they stand.
    size_t target(size_t position) const { return position + number(position); }

private:
    Order m_order;
    size_t m_size = 0;
    std::string m_bytes;
};

} // namespace

// A number of sections, each with the place of its name, that one's length and its own place; the
// last section is a list of pairs.
bool isWholeAnthy(const std::string& file)
{
    const size_t sectionsAtMost = 100;
    const size_t sectionBytes = 12;
    const size_t listHeader = 64;
    const size_t pairBytes = 8;
    const Bytes header(file, Order::Big, 4 + sectionsAtMost * sectionBytes);
    const size_t sections = header.number(0);
    if (sections == 0 || sections > sectionsAtMost)
        return false;
    const size_t last = header.number(sections * sectionBytes);
    const Bytes list(file, Order::Big, last, pairBytes);
    return list.number(4) != 0 && last + listHeader + pairBytes * list.number(4) <= header.size();
}

// A tree of nodes of eight bytes: the root's key is the lower half of their number, and a leaf,
// whose key is 0, has the place of a word.
bool isWholeChewing(const std::string& tree, const std::string& words)
{
    const size_t nodeBytes = 8;
    const Bytes nodes(tree, Order::Little);
    const size_t count = nodes.size() / nodeBytes;
    if (count == 0 || nodes.size() % nodeBytes != 0 || (count & 0xFFFF) != nodes.number(0, 2))
        return false;
    uint32_t lastWord = 0;
    for (size_t node = 1; node < count; ++node)
        if (nodes.number(node * nodeBytes, 2) == 0)
            lastWord = std::max(lastWord, nodes.number(node * nodeBytes + 2, 3));
    return lastWord < Bytes(words, Order::Little, 0).size();
}

// After a name of 32 bytes, four numbers and the size of an array: where that and the list of
// spellings are; each of these has a number of entries and their place.
bool isWholeRimePrism(const std::string& file)
{
    const size_t arraySize = 48;
    const size_t array = 52;
    const size_t list = 56;
    const size_t spellingBytes = 12;
    const Bytes bytes(file, Order::Little);
    const size_t spellings = bytes.target(list);
    size_t end = bytes.target(array) + size_t{bytes.number(arraySize)} * 4;
    const size_t count = bytes.number(spellings);
    for (size_t i = 0; i < count && end <= bytes.size(); ++i) {
        const size_t entry = spellings + 4 + 8 * i;
        end = std::max(end, entry + 8);
        if (bytes.number(entry) != 0)
            end = std::max(end, bytes.target(entry + 4) + bytes.number(entry) * spellingBytes);
    }
    return count != 0 && end <= bytes.size();
}

// The strings stand last; their place and size are near the beginning.
bool isWholeRimeTable(const std::string& file)
{
    const size_t strings = 60;
    const size_t stringsSize = 64;
    const Bytes header(file, Order::Little, 128);
    return header.number(stringsSize) != 0 &&
           header.target(strings) + header.number(stringsSize) <= header.size();
}

bool isWholeM17nTable(const std::string& file)
{
    std::ifstream stream(file, std::ios::binary);
    const std::string text(std::istreambuf_iterator<char>(stream), {});
    int open = 0;
    bool hasList = false;
    for (size_t i = 0; i < text.size(); ++i) {
        switch (text[i]) {
        case ';': // a remark, to the line's end
            i = std::min(text.find('\n', i), text.size());
            break;
        case '"':
            for (++i; i < text.size() && text[i] != '"'; ++i)
                i += text[i] == '\\' ? 1 : 0;
            if (i >= text.size())
                return false;
            break;
        case '?': // a character, which may be a parenthesis
            i += text.compare(i, 2, "?\\") == 0 ? 2 : 1;
            break;
        case '\\':
            ++i;
            break;
        case '(':
            hasList = true;
            ++open;
            break;
        case ')':
            --open;
            break;
        default:
            break;
        }
    }
    return hasList && open == 0;
}

} // namespace input_methods
