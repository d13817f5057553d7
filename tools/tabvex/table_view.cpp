#include "table_view.h"

#include "field_rules.h"
#include "json_text.h"
#include "output.h"
#include "text_layout.h"

namespace tabvex::tool {

namespace {

using nlohmann::ordered_json;

constexpr std::size_t kNumberWidth = 8;
constexpr std::size_t kPlaceWidth = 4;
constexpr const char* kGap = "  ";

std::string Quoted(const std::string& text) {
    return '"' + text + '"';
}

void Append(std::string& list, const std::string& name, const std::string& contents) {
    list.append(list.empty() ? "" : ", ").append(name).append(" ").append(contents);
}

// What the descriptor says besides its format letter.
std::string Details(const CItemDef& item) {
    std::string details;
    if (item.HasDefault != 0) {
        Append(details, "default", Quoted(item.Default));
    }
    if (item.HasFill != 0) {
        Append(details, "fill", Quoted({item.Fill}));
    }
    if (item.HasModifiers != 0) {
        Append(details, "modifiers", item.Modifiers);
    }
    if (item.IntDigits + item.Decimals > 0) {
        Append(details, "digits", std::to_string(item.IntDigits) + "." + std::to_string(item.Decimals));
    }
    for (const CItemRange& range : item.Ranges) {
        Append(details, "range", RangeText(range));
    }
    std::string values;
    for (const std::string& value : item.Values) {
        values.append(values.empty() ? "" : "; ").append(value);
    }
    if (item.HasValues != 0) {
        Append(details, "values", values);
    }
    if (item.HasDatePattern != 0) {
        Append(details, "date", item.DatePattern);
    }
    return details;
}

class CTextView {
public:
    CTextView(const CTableSource& source, COutput& out) : m_Source(source), m_Out(out) {}

    void Show() {
        if (m_Source.Type.empty()) {
            ShowHeader();
        }
        for (const CTableSection& section : m_Source.Table.GetSections()) {
            if (m_Source.IsShown(section)) {
                ShowSection(section);
            }
        }
    }

private:
    std::string Shown(const std::string& text) const { return EscapeControls(m_Source.Text(text)); }

    void ShowHeader() {
        for (const CTableKey& key : m_Source.Table.GetKeys()) {
            m_Out.WriteLine(PadRight(Shown(key.Name), kNumberWidth + 2) + kGap + Shown(key.Value));
        }
        m_bBegun = !m_Source.Table.GetKeys().empty();
    }

    void ShowSection(const CTableSection& section) {
        if (m_bBegun) {
            m_Out.WriteLine("");
        }
        m_bBegun = true;
        const std::string name = section.Type.empty() ? "[" + section.HeadName + "]" : section.Type;
        m_Out.WriteLine(Shown(name) + kGap + Counted(section.Items.size(), "item") + ", line " +
                        std::to_string(section.Line));
        m_Out.WriteLine(PadLeft("item", kNumberWidth) + "   pos   len  format");
        for (const CTableItem& item : section.Items) {
            if (item.IsComplete()) {
                ShowItem(item);
            }
        }
    }

    void ShowItem(const CTableItem& item) {
        const CItemDef& definition = item.Definition;
        std::string text = PadLeft(std::to_string(definition.Number), kNumberWidth);
        text.append(kGap).append(PadLeft(std::to_string(definition.Position), kPlaceWidth));
        text.append(kGap).append(PadLeft(std::to_string(definition.Length), kPlaceWidth)).append(kGap);
        const std::string indent(CountCharacters(text) + 3, ' ');
        text.append(item.BadComponent == 1 ? std::string("?") : std::string(1, definition.Format)).append(kGap);
        m_Out.WriteLine(TrimRight(Hang(text, Shown(item.Description))));
        const std::string details = item.BadComponent == 0 ? Details(definition) : "bad format: " + item.Columns[3];
        if (!details.empty()) {
            m_Out.WriteLine(Hang(indent, Shown(details)));
        }
        ShowNotes(item, indent);
    }

    // Notes are sorted by line like the items, and a section's lines follow one another.
    void ShowNotes(const CTableItem& item, const std::string& indent) {
        const CFindings& notes = m_Source.Result.Notes;
        while (m_nNextNote < notes.size() && notes[m_nNextNote].Line <= item.Line) {
            if (notes[m_nNextNote].Line == item.Line) {
                m_Out.WriteLine(indent + "note: " + Shown(notes[m_nNextNote].Text));
            }
            ++m_nNextNote;
        }
    }

    const CTableSource& m_Source;
    COutput& m_Out;
    std::size_t m_nNextNote = 0;
    bool m_bBegun = false;
};

ordered_json ToTexts(const CTableSource& source, const std::vector<std::string>& texts) {
    ordered_json list = ordered_json::array();
    for (const std::string& text : texts) {
        list.push_back(source.Text(text));
    }
    return list;
}

ordered_json ItemToJson(const CTableSource& source, const CTableItem& item) {
    const CItemDef& definition = item.Definition;
    ordered_json json = {{"line", item.Line},
                         {"number", definition.Number},
                         {"length", definition.Length},
                         {"position", definition.Position},
                         {"descriptor", source.Text(item.Columns[3])},
                         {"bad_component", item.BadComponent},
                         {"format", std::string(1, definition.Format)},
                         {"default", source.Text(definition.Default)},
                         {"fill", source.Text({definition.Fill})},
                         {"modifiers", definition.HasModifiers != 0 ? definition.Modifiers : ""},
                         {"int_digits", definition.IntDigits},
                         {"decimals", definition.Decimals}};
    json["ranges"] = ordered_json::array();
    for (const CItemRange& range : definition.Ranges) {
        json["ranges"].push_back(source.Text(RangeText(range)));
    }
    json["values"] = ToTexts(source, definition.Values);
    json["date_pattern"] = source.Text(definition.DatePattern);
    json["description"] = source.Text(item.Description);
    return json;
}

std::string SectionToJson(const CTableSource& source, const CTableSection& section) {
    ordered_json json = {{"type", source.Text(section.Type)}, {"line", section.Line}};
    json["items"] = ordered_json::array();
    for (const CTableItem& item : section.Items) {
        if (item.IsComplete()) {
            json["items"].push_back(ItemToJson(source, item));
        }
    }
    return ToJson(json);
}

} // namespace

void ShowTableAsText(const CTableSource& source, COutput& out) {
    CTextView(source, out).Show();
}

void ShowTableAsJson(const CTableSource& source, COutput& out) {
    ordered_json header = ordered_json::object();
    for (const CTableKey& key : source.Table.GetKeys()) {
        header[source.Text(key.Name)] = source.Text(key.Value);
    }
    out.Write("{\"file\":" + ToJson(source.File) + ",\"header\":" + ToJson(header) + ",\n\"sections\":[");
    CJsonList sections(out);
    for (const CTableSection& section : source.Table.GetSections()) {
        if (source.IsShown(section)) {
            sections.Add(SectionToJson(source, section));
        }
    }
    out.WriteLine("\n],\n\"findings\":" + ToJson(FindingsToJson(source.Result.Findings)) +
                  ",\n\"notes\":" + ToJson(FindingsToJson(source.Result.Notes)) + "}");
}

} // namespace tabvex::tool
