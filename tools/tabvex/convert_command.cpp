// tabvex convert: a record file with or without CR LF, or in another code page.
#include <CLI/CLI.hpp>

#include <memory>

#include "code_page_table.h"
#include "commands.h"
#include "exit_status.h"
#include "file_saver.h"
#include "output.h"
#include "record_file.h"
#include "text_layout.h"

namespace tabvex::tool {

namespace {

constexpr const char* kFooter =
    "Only what is asked for changes: lines keep their order, lines of unknown types are converted like all others, "
    "and\n"
    "record-number markers stay as they are, though a save by the library groups lines by type and makes the markers\n"
    "new. Without --crlf and --no-crlf, CR LF stay as they are; the last record gets them where others have them.\n\n"
    "Code pages are converted character by character as the library does it, over 1252; a character without its like\n"
    "becomes the nearest one, which is reported with exit status 1.\n\n"
    "An FZ record as a save writes it, with 640 characters, stays one record in a file with CR LF; in a file without,\n"
    "only as the last record. Anywhere else FZ records have 128 characters, like all others. A damaged file is not\n"
    "converted. Files with lines of any length can only change their code page.\n\n"
    "Examples:\n"
    "  tabvex convert samples/all-types.rec unseparated.rec --no-crlf\n"
    "  tabvex convert samples/umlauts-cp850.rec umlauts-cp1252.rec --from 850 --to 1252";

constexpr std::size_t kRecordLength = 128;
constexpr std::size_t kLongRecordLength = 640; // of an FZ record that was saved
constexpr std::string_view kLongType = "FZ";
constexpr std::string_view kCrLf = "\r\n";

struct CConvertOptions {
    std::string File;
    std::string Out;
    bool CrLf = false;
    bool NoCrLf = false;
    int From = 0; // 0: as it is
    int To = 0;
};

bool EndsAt(std::string_view rest, std::size_t length, bool crlf) {
    return rest.size() == length || (crlf && rest.size() > length && rest.substr(length, kCrLf.size()) == kCrLf);
}

// Characters of the first record of what is left of the file.
std::size_t LengthOfRecord(std::string_view rest, bool crlf) {
    const bool isLong = rest.substr(0, kLongType.size()) == kLongType && EndsAt(rest, kLongRecordLength, crlf) &&
                        !(crlf && EndsAt(rest, kRecordLength, crlf));
    return isLong ? kLongRecordLength : kRecordLength;
}

std::string WithSeparators(const std::string& fileName, std::string_view rest, bool had, bool wanted) {
    std::string bytes;
    bytes.reserve(rest.size() + rest.size() / kRecordLength * kCrLf.size());
    for (int number = 1; !rest.empty(); ++number) {
        const std::size_t length = LengthOfRecord(rest, had);
        if (rest.size() < length || (had && !EndsAt(rest, length, had))) {
            const char* what = rest.size() < length ? "the record is cut off" : "no CR LF behind the record";
            throw CToolError(fileName + ":" + std::to_string(number) + ": " + what + "; nothing was written",
                             kFindings);
        }
        bytes.append(rest.substr(0, length)).append(wanted ? kCrLf : "");
        rest.remove_prefix(length);
        rest.remove_prefix(had && !rest.empty() ? kCrLf.size() : 0);
    }
    return bytes;
}

// The number of characters of which only the nearest one is left.
std::size_t ConvertCodePage(std::string& bytes, int from, int to) {
    const CCodePageTable table(from, to);
    std::size_t lost = 0;
    for (char& c : bytes) {
        lost += table.IsKept(c) ? 0 : 1;
        c = table.Convert(c);
    }
    return lost;
}

int Convert(const CConvertOptions& options) {
    const CRecordFile file(options.File, EFileForm::Auto);
    std::string bytes = file.GetBytes();
    if (file.IsFixed()) {
        bytes = WithSeparators(options.File, file.GetBytes(), file.HasCrLf(),
                               options.CrLf || (file.HasCrLf() && !options.NoCrLf));
    } else if (options.CrLf || options.NoCrLf) {
        throw CToolError(options.File + ": its lines are of any length and keep their ends", kFindings);
    }
    const std::size_t lost = options.From == 0 ? 0 : ConvertCodePage(bytes, options.From, options.To);
    SaveFile(options.Out, bytes, [](const std::string&) {}); // read back by the saver itself
    if (lost == 0) {
        return kFine;
    }
    PrintMessage(options.File + ": " + Counted(lost, "character") + " not in code page " + std::to_string(options.To) +
                 "; each became the nearest one");
    return kFindings;
}

} // namespace

void AddConvertCommand(CLI::App& app, COutput& /*out*/, int& status) {
    CLI::App* command =
        app.add_subcommand("convert", "Copy a record file with or without CR LF, or to another code page");
    const auto options = std::make_shared<CConvertOptions>();
    command->add_option("FILE", options->File, "Record file")->required();
    command->add_option("OUT", options->Out, "File to write")->required();
    CLI::Option* crlf = command->add_flag("--crlf", options->CrLf, "With CR LF behind each record");
    command->add_flag("--no-crlf", options->NoCrLf, "Without CR LF")->excludes(crlf);
    const CLI::IsMember pages({850, 437, 1252});
    CLI::Option* from =
        command->add_option("--from", options->From, "Code page of FILE: 850, 437 or 1252")->check(pages);
    CLI::Option* to = command->add_option("--to", options->To, "Code page of OUT: 850, 437 or 1252")->check(pages);
    from->needs(to);
    to->needs(from);
    command->footer(kFooter);
    command->callback([options, &status] { status = Convert(*options); });
}

} // namespace tabvex::tool
