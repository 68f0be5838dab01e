#include "cli/Json.h"

#include <nlohmann/json.hpp>

namespace {

using nlohmann::ordered_json;

ordered_json rowsOf(const OutputTable& table)
{
    const GridText& grid = table.grid;
    std::vector<std::string> keys;
    for (int col = 0; col < grid.cols(); ++col) {
        const std::string& header = grid.text(0, col);
        int before = 0;
        for (int i = 0; i < col; ++i) before += grid.text(0, i) == header;
        std::string key = before ? header + std::to_string(before + 1) : header;
        std::erase(key, ' ');
        keys.push_back(key);
    }
    auto rows = ordered_json::array();
    for (int row = 1; row < grid.rows(); ++row) {
        ordered_json object;
        for (int col = 0; col < grid.cols(); ++col) object[keys[static_cast<std::size_t>(col)]] = grid.text(row, col);
        for (const auto& typed : table.typed) {
            const auto value = grid.shown(row, typed.column);
            object[std::string(typed.key)] = value ? ordered_json(*value) : ordered_json();
        }
        if (!grid.warning(row).empty()) object["warning"] = grid.warning(row);
        rows.push_back(std::move(object));
    }
    return rows;
}

std::string textOf(const ordered_json& json)
{
    return json.dump(2, ' ', false, ordered_json::error_handler_t::replace) + "\n";
}

}  // namespace

std::string Json(const OutputTable& table) { return textOf(rowsOf(table)); }

std::string JsonObject(const std::vector<std::pair<std::string, JsonValue>>& members)
{
    ordered_json object;
    for (const auto& [name, value] : members)
        std::visit(
            [&, &key = name](const auto& v) {
                if constexpr (std::is_same_v<std::decay_t<decltype(v)>, OutputTable>)
                    object[key] = rowsOf(v);
                else
                    object[key] = v;
            },
            value);
    return textOf(object);
}
