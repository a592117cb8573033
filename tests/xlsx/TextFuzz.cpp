// Texts of every kind as cells, sheet names and formulas: the workbook stays an archive that another reader unpacks,
// and each of its parts well-formed XML to another parser.
#include "../zip/ArchiveReader.h"
#include "support/FakeFiles.h"
#include "xlsx/NameRules.h"
#include "xlsx/Workbook.h"

#include <expat.h>

#include <cstdlib>

namespace {

const std::string Target = "no-such-folder/out.xlsx";

void Require(bool holds) {
    if (!holds) std::abort();
}

bool IsWellFormed(const std::string& xml) {
    XML_Parser parser = XML_ParserCreate(nullptr);
    const XML_Status status = XML_Parse(parser, xml.data(), static_cast<int>(xml.size()), XML_TRUE);
    XML_ParserFree(parser);
    return status == XML_STATUS_OK;
}

/// Looks at every part when it is removed. Packing takes most of the time, so most archives cannot be created.
class Files final : public support::FakeFiles {
public:
    explicit Files(bool takesArchive) : takesArchive(takesArchive) {}
    unsigned partCount = 0;

    platform::Creation CreateEmpty(const std::string& path, const std::string& model) override {
        return takesArchive ? FakeFiles::CreateEmpty(path, model) : platform::Creation::Failed;
    }
    bool RemoveFile(const std::string& path) override {
        if (files.count(path) != 0) Require(IsWellFormed(files[path].bytes));
        ++partCount;
        return FakeFiles::RemoveFile(path);
    }

private:
    bool takesArchive;
};

} // namespace

// The first byte of each text says what it becomes; bytes of the value 0xFE part them. What the fuzzer makes is far
// below the limits of a sheet.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t sizeBytes) {
    static unsigned runs = 0;
    const bool takesArchive = runs++ % 64 == 0;
    Files files(takesArchive);
    Xlsx::CWorkbook workbook("Author", files);
    std::set<std::string> titles = {"first"};
    std::size_t refused = 0;
    Xlsx::CWorksheet* sheet = &workbook.AddSheet("First");
    sheet->BeginRow();
    const std::string all(reinterpret_cast<const char*>(data), sizeBytes);
    for (std::size_t at = 0; at < all.size();) {
        const std::size_t end = std::min(all.find('\xFE', at), all.size());
        const std::string text = all.substr(at + 1, end > at ? end - at - 1 : 0);
        switch (static_cast<unsigned char>(all[at]) % 4) {
        case 0: {
            std::string title = text;
            while (!Xlsx::IsSheetName(title) || !titles.insert(Xlsx::WithoutCase(title)).second) {
                title = "S" + std::to_string(titles.size() + ++refused);
            }
            sheet = &workbook.AddSheet(title);
            sheet->BeginRow();
            break;
        }
        case 1:
            sheet->AddCell("=" + text);
            break;
        case 2: {
            Xlsx::Comment comment;
            comment.author = text;
            comment.text = {{text, {text, 10, Xlsx::FontColour::Given, text, 0}}};
            sheet->AddComment(comment);
            break;
        }
        default:
            sheet->AddCell(text);
        }
        at = end + 1;
    }
    const bool isSaved = workbook.Save(std::wstring(Target.begin(), Target.end()));
    Require(isSaved == takesArchive && files.partCount >= 10);
    if (isSaved) Require(zip_test::ReadArchive(files.files[Target].bytes).value().size() == files.partCount);
    Require(files.folders.empty() && files.files.size() <= 1);
    return 0;
}
