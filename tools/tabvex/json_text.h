// Pieces of JSON, for documents that are too large to be built in memory.
#pragma once

#include <string>

#include <nlohmann/json.hpp>

#include "output.h"

namespace tabvex::tool {

/// The value on one line, always valid UTF-8.
inline std::string ToJson(const nlohmann::ordered_json& value) {
    return value.dump(-1, ' ', false, nlohmann::ordered_json::error_handler_t::replace);
}

/// A list written member by member, each on a line of its own; the brackets are the caller's.
class CJsonList {
public:
    explicit CJsonList(COutput& out) : m_Out(out) {}
    void Begin() {
        m_Out.Write(m_bEmpty ? "\n" : ",\n");
        m_bEmpty = false;
    }
    void Add(const std::string& json) {
        Begin();
        m_Out.Write(json);
    }

private:
    COutput& m_Out;
    bool m_bEmpty = true;
};

/// The findings as an array.
inline nlohmann::ordered_json FindingsToJson(const CFindings& findings) {
    nlohmann::ordered_json list = nlohmann::ordered_json::array();
    for (const CFinding& finding : findings) {
        const nlohmann::ordered_json line = finding.Line > 0 ? nlohmann::ordered_json(finding.Line) : nullptr;
        list.push_back({{"line", line}, {"text", finding.Text}});
    }
    return list;
}

} // namespace tabvex::tool
