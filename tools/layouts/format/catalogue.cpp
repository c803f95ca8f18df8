// Reads and writes the catalogue, and finds out which keys lie beside each other.
#include "catalogue.h"

#include <algorithm>
#include <cstdlib>
#include <sstream>
#include <tuple>

#include <json/value.h>

#include "json_file.h"

namespace layouts
{
namespace
{

std::vector<int> rowsOf(const std::vector<Cell>& cells)
{
    std::vector<int> rows;
    rows.reserve(cells.size());
    for (const Cell& cell : cells)
        rows.push_back(cell.row);
    std::sort(rows.begin(), rows.end());
    rows.erase(std::unique(rows.begin(), rows.end()), rows.end());
    return rows;
}

std::vector<int> keysOfRow(const std::vector<Cell>& cells, int row)
{
    std::vector<int> keys;
    for (size_t i = 0; i < cells.size(); ++i)
        if (cells[i].row == row)
            keys.push_back(static_cast<int>(i));
    std::sort(keys.begin(), keys.end(), [&](int a, int b) {
        return cells[static_cast<size_t>(a)].column < cells[static_cast<size_t>(b)].column;
    });
    return keys;
}

// Doubled, so that the centre of an odd width is a whole number.
int doubledCentre(const Cell& cell)
{
    return 2 * cell.column + cell.width;
}

int keyUnder(const std::vector<Cell>& cells, const std::vector<int>& row, const Cell& from)
{
    const int centre = doubledCentre(from);
    const auto distance = [&](int key) {
        const Cell& cell = cells[static_cast<size_t>(key)];
        const int outside =
            std::max({2 * cell.column - centre, centre - 2 * (cell.column + cell.width), 0});
        return std::make_tuple(outside, std::abs(doubledCentre(cell) - centre), cell.column);
    };
    return *std::min_element(row.begin(), row.end(),
                             [&](int a, int b) { return distance(a) < distance(b); });
}

} // namespace

int keyWidth(const Catalogue& catalogue, const Cell& cell)
{
    return cell.width * (catalogue.gapX + catalogue.cellWidth) - catalogue.gapX;
}

int keyHeight(const Catalogue& catalogue, const Cell& cell)
{
    return cell.height * (catalogue.gapY + catalogue.cellHeight) - catalogue.gapY;
}

Catalogue readCatalogue(const std::string& file)
{
    return catalogueOf(readJson(file));
}

Catalogue catalogueOf(const Json::Value& root)
{
    Catalogue catalogue = {};
    for (const Json::Value& name : root["language"])
        catalogue.names.push_back(name.asString());
    const Json::Value& grid = root["Rect"];
    catalogue.gapX = grid["positionXValue"].asInt();
    catalogue.gapY = grid["positionYValue"].asInt();
    catalogue.cellWidth = grid["widthValue"].asInt();
    catalogue.cellHeight = grid["heightValue"].asInt();
    for (const Json::Value& cell : root["RectValue"])
        catalogue.cells.push_back({cell["positionX"].asInt(), cell["positionY"].asInt(),
                                   cell["width"].asInt(), cell["height"].asInt()});
    return catalogue;
}

std::string writeCatalogue(const Catalogue& catalogue)
{
    std::ostringstream out;
    out << "{\n  \"language\": [";
    for (size_t i = 0; i < catalogue.names.size(); ++i)
        out << (i ? ", " : "") << quoted(catalogue.names[i]);
    out << "],\n  \"Rect\": {\"positionXValue\": " << catalogue.gapX
        << ", \"positionYValue\": " << catalogue.gapY << ", \"widthValue\": " << catalogue.cellWidth
        << ", \"heightValue\": " << catalogue.cellHeight << "},\n  \"RectValue\": [";
    for (size_t i = 0; i < catalogue.cells.size(); ++i) {
        const Cell& cell = catalogue.cells[i];
        out << (i ? "," : "") << "\n    {\"positionX\": " << cell.column
            << ", \"positionY\": " << cell.row << ", \"width\": " << cell.width
            << ", \"height\": " << cell.height << "}";
    }
    out << "\n  ]\n}\n";
    return out.str();
}

std::vector<Neighbours> neighbours(const std::vector<Cell>& cells)
{
    std::vector<Neighbours> result(cells.size());
    const std::vector<int> rows = rowsOf(cells);
    for (size_t r = 0; r < rows.size(); ++r) {
        const std::vector<int> row = keysOfRow(cells, rows[r]);
        const std::vector<int> above = keysOfRow(cells, rows[(r + rows.size() - 1) % rows.size()]);
        const std::vector<int> below = keysOfRow(cells, rows[(r + 1) % rows.size()]);
        for (size_t i = 0; i < row.size(); ++i) {
            const Cell& cell = cells[static_cast<size_t>(row[i])];
            result[static_cast<size_t>(row[i])] = {
                row[(i + row.size() - 1) % row.size()], row[(i + 1) % row.size()],
                keyUnder(cells, above, cell), keyUnder(cells, below, cell)};
        }
    }
    return result;
}

} // namespace layouts
