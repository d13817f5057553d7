// tabvex set: changes single items of a record file and leaves every other character as it is.
#include <CLI/CLI.hpp>

#include <algorithm>
#include <map>
#include <memory>

#include "commands.h"
#include "exit_status.h"
#include "field_rules.h"
#include "field_value.h"
#include "file_saver.h"
#include "item_place.h"
#include "output.h"
#include "text_encoder.h"
#include "text_layout.h"

namespace tabvex::tool {

namespace {

constexpr const char* kFooter =
    "A value is a text, a number like 1250.5 or -3,75, or a date: YYYY-MM-DD or the item's own pattern. It must suit "
    "the\n"
    "item's layout; an empty one blanks the item. Items of entries are those of one entry, counted as 'tabvex show' "
    "lists\n"
    "them. When one value does not suit, nothing is changed. Every other character of the file stays as it is.\n"
    "The file is replaced only when the new one is on the disk and reads back right.\n\n"
    "Examples:\n"
    "  tabvex set calculation.rec 1020=CLM-2025-1 1030=2025-11-14 --table calculation.table\n"
    "  tabvex set calculation.rec 2025=1250.50 --table calculation.table --entry 3 -o changed.rec\n"
    "  tabvex set calculation.rec 1100='Köln' 1110= --table calculation.table\n"
    "  tabvex set calculation.rec 1060=84000 --table calculation.table --no-crlf -o unseparated.rec";

constexpr const char* kBlankItem = "(blank)";

struct CAssignment {
    int Item = 0;
    std::string Value;
};

struct CSetOptions {
    CShowOptions Source;
    std::vector<std::string> Assignments;
    int Entry = 1;
    std::string Output;
    bool CrLf = false;
    bool NoCrLf = false;
};

struct CChange {
    CItemPlace Place;
    std::string Old; // the whole field, in the file's code page
    std::string New;
};

using CLines = std::map<int, std::string>;

bool ReadAssignment(const std::string& text, CAssignment& assignment) {
    const std::size_t equals = text.find('=');
    if (equals == std::string::npos || !ReadWholeNumber(text.substr(0, equals), assignment.Item)) {
        return false;
    }
    assignment.Value = text.substr(equals + 1);
    return true;
}

std::string CheckAssignment(const std::string& text) {
    CAssignment assignment;
    return ReadAssignment(text, assignment) ? "" : text + " is not ITEM=VALUE";
}

std::vector<CAssignment> ReadAssignments(const std::vector<std::string>& texts) {
    std::vector<CAssignment> assignments;
    for (const std::string& text : texts) {
        CAssignment assignment;
        ReadAssignment(text, assignment);
        const bool again = std::any_of(assignments.begin(), assignments.end(),
                                       [&](const CAssignment& a) { return a.Item == assignment.Item; });
        if (again) {
            throw CToolError("item " + std::to_string(assignment.Item) + " is given twice", kUsage);
        }
        assignments.push_back(std::move(assignment));
    }
    return assignments;
}

class CSetter {
public:
    explicit CSetter(const CSetOptions& options)
        : m_Options(options), m_Source(options.Source), m_Encoder(options.Source.CodePage) {}

    int Run(COutput& out) {
        const std::vector<CAssignment> assignments = ReadAssignments(m_Options.Assignments);
        RequireWholeFile();
        bool fine = true;
        for (const CAssignment& assignment : assignments) {
            fine = Add(assignment) && fine;
        }
        if (!fine) {
            PrintMessage(m_Options.Source.File + ": nothing was changed");
            return kFindings;
        }
        Save();
        Print(out);
        return kFine;
    }

private:
    // What is cut off, or read misplaced, is not to be worked on.
    void RequireWholeFile() {
        if (!m_Source.GetFindings().empty()) {
            PrintFindings(m_Options.Source.File, m_Source.GetFindings());
            throw CToolError(m_Options.Source.File + ": nothing was changed, as it cannot be read as a whole",
                             kFindings);
        }
        if (!m_Source.GetFile().IsFixed() && (m_Options.CrLf || m_Options.NoCrLf)) {
            throw CToolError("--crlf and --no-crlf are for files of records of 128 characters", kUsage);
        }
    }

    bool Add(const CAssignment& assignment) {
        try {
            CChange change;
            change.Place = FindItemPlace(m_Source, assignment.Item, m_Options.Entry);
            change.Old = PaddedField(*change.Place.Item, FieldAt(m_Source, change.Place));
            LayOut(assignment, change);
            Put(change);
            m_Changes.push_back(std::move(change));
            return true;
        } catch (const CToolError& error) {
            if (error.GetStatus() != kFindings) {
                throw;
            }
            PrintMessage(error.what());
            return false;
        }
    }

    [[noreturn]] static void Refuse(const CItemPlace& place, const std::string& why) {
        throw CToolError(NameOf(place) + ": " + why, kFindings);
    }

    void LayOut(const CAssignment& assignment, CChange& change) {
        const std::string shown = "\"" + EscapeControls(assignment.Value) + "\": ";
        std::string value;
        try {
            value = m_Encoder.Encode(assignment.Value);
        } catch (const CToolError& error) {
            Refuse(change.Place, shown + error.what());
        }
        if (const auto broken = LayOutField(*change.Place.Item, value, change.New)) {
            Refuse(change.Place,
                   shown + broken->Rule + ", expected " + m_Source.GetDecoder().ToShown(broken->Expected));
        }
    }

    // Lines of any length grow with their items, records do not.
    void Put(const CChange& change) {
        std::string& line =
            m_Lines.try_emplace(change.Place.Line, m_Source.GetFileLine(change.Place.Line)).first->second;
        const auto begin = static_cast<std::size_t>(change.Place.Offset);
        const std::size_t end = begin + change.New.size();
        if (change.Place.Offset < 0 || (m_Source.GetFile().IsFixed() && end > line.size())) {
            Refuse(change.Place, "does not stand within the " + Counted(line.size(), "character") + " of its line");
        }
        if (!m_Source.GetFile().IsFixed() && TrimRight(change.New).empty() && begin >= line.size()) {
            return;
        }
        line.resize(std::max(line.size(), end), ' ');
        line.replace(begin, change.New.size(), change.New);
    }

    bool IsConverted() const {
        return m_Source.GetFile().IsFixed() && m_Source.GetFile().GetLineCount() > 0 &&
               (m_Source.GetFile().HasCrLf() ? m_Options.NoCrLf : m_Options.CrLf);
    }

    std::string MakeFile() const {
        const CRecordFile& file = m_Source.GetFile();
        std::string bytes;
        if (IsConverted()) {
            for (int number = 1; number <= file.GetLineCount(); ++number) {
                const auto changed = m_Lines.find(number);
                bytes.append(changed == m_Lines.end() ? file.GetLine(number) : changed->second);
                bytes.append(m_Options.CrLf ? "\r\n" : "");
            }
            return bytes;
        }
        bytes = file.GetBytes();
        for (auto line = m_Lines.rbegin(); line != m_Lines.rend(); ++line) {
            const std::string_view old = file.GetLine(line->first);
            bytes.replace(static_cast<std::size_t>(old.data() - file.GetBytes().data()), old.size(), line->second);
        }
        return bytes;
    }

    void Save() {
        const std::string& target = m_Options.Output.empty() ? m_Options.Source.File : m_Options.Output;
        const std::string bytes = MakeFile();
        if (m_Options.Output.empty() && bytes == m_Source.GetFile().GetBytes()) {
            return;
        }
        SaveFile(target, bytes, [this](const std::string& saved) { CheckSaved(saved); });
    }

    // A value may tell the library what kind of record its line is.
    void CheckSaved(const std::string& saved) {
        CShowOptions options = m_Options.Source;
        options.File = saved;
        CShowSource source(options);
        const CAllRecordsEx& before = m_Source.GetRecords();
        const CAllRecordsEx& after = source.GetRecords();
        bool same = source.GetFindings().empty() && before.GetRecordCount() == after.GetRecordCount();
        for (int i = 0; same && i < before.GetRecordCount(); ++i) {
            same = std::string(before.GetRecord(i)->GetType()) == after.GetRecord(i)->GetType() &&
                   before.GetRecord(i)->GetLineCount() == after.GetRecord(i)->GetLineCount();
        }
        if (!same) {
            throw CToolError(m_Options.Source.File + ": nothing was changed, as its records would become other ones",
                             kFindings);
        }
        for (const CChange& change : m_Changes) {
            CheckReadBack(source, change);
        }
    }

    // The entry that was changed may be blank now, and is then not counted; but no other one may be lost behind it.
    void CheckReadBack(CShowSource& source, const CChange& change) {
        const CItemPlace& place = change.Place;
        if (PaddedField(*place.Item, FieldAt(source, place)) != change.New) {
            Refuse(place, "nothing was changed, as another of the items overwrites it");
        }
        const int mayBeLost = place.InCell ? 0 : 1;
        if (CountEntries(source, place.Item->Number) + mayBeLost < CountEntries(m_Source, place.Item->Number)) {
            Refuse(place, "nothing was changed, as programs would not find all entries any more");
        }
    }

    std::string Shown(const CChange& change, const std::string& field) const {
        const CFieldValue value = ReadFieldValue(*change.Place.Item, field);
        return value.Kind == EValueKind::Blank ? kBlankItem : m_Source.GetDecoder().ToShown(value.Text);
    }

    void Print(COutput& out) const {
        for (const CChange& change : m_Changes) {
            const std::string entry = change.Place.Entry == 0 ? "" : " entry " + std::to_string(change.Place.Entry);
            const std::string now = change.New == change.Old ? "unchanged" : "now " + Shown(change, change.New);
            std::string line = std::to_string(change.Place.Item->Number);
            line.append(entry).append(": ").append(Shown(change, change.Old)).append(", ").append(now);
            out.WriteLine(line);
        }
    }

    const CSetOptions& m_Options;
    CShowSource m_Source;
    CTextEncoder m_Encoder;
    std::vector<CChange> m_Changes;
    CLines m_Lines; // changed ones, by their number in the file
};

} // namespace

void AddSetCommand(CLI::App& app, COutput& out, int& status) {
    CLI::App* command = app.add_subcommand("set", "Change the values of items");
    const auto options = std::make_shared<CSetOptions>();
    command->add_option("FILE", options->Source.File, "Record file")->required();
    command->add_option("ITEM=VALUE", options->Assignments, "Numbers of the items and their new values")
        ->required()
        ->check(CheckAssignment);
    command->add_option("--table", options->Source.Table, "Table file that describes it")->required();
    command->add_option("--entry", options->Entry, "Entry of which items of entries are changed, from 1")
        ->check(CLI::PositiveNumber)
        ->capture_default_str();
    command->add_option("-o,--output", options->Output, "Save under this name, and leave FILE as it is");
    CLI::Option* crlf = command->add_flag("--crlf", options->CrLf, "CR LF behind every record; else as FILE has it");
    command->add_flag("--no-crlf", options->NoCrLf, "No CR LF behind the records")->excludes(crlf);
    command->add_option("--code-page", options->Source.CodePage, "Code page of the record file: 850, 437 or 1252")
        ->check(CLI::IsMember({850, 437, 1252}))
        ->capture_default_str();
    command->footer(kFooter);
    command->callback([options, &out, &status] { status = CSetter(*options).Run(out); });
}

} // namespace tabvex::tool
