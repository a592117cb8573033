// Texts of every kind as cells, sheet names and formulas: the workbook stays an archive that another reader unpacks,
// and each of its parts well-formed XML to another parser.
#include "../zip/Inflater.h"
#include "support/FakeFiles.h"
#include "xlsx/NameRules.h"
#include "xlsx/Workbook.h"
#include "zip/Crc32.h"

#include <expat.h>

#include <cstdlib>
#include <set>
#include <string>
#include <vector>

namespace {

const std::string target = "no-such-folder/out.xlsx";

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
class Files final : public platform::FileLayer {
public:
    explicit Files(bool takesArchive) : takesArchive(takesArchive) {}
    support::FakeFiles inner;
    unsigned partCount = 0;

    std::unique_ptr<platform::OutputFile> CreateOrTruncate(const std::string& path) override {
        return inner.CreateOrTruncate(path);
    }
    platform::Creation CreateEmpty(const std::string& path, const std::string& model) override {
        return takesArchive ? inner.CreateEmpty(path, model) : platform::Creation::Failed;
    }
    std::unique_ptr<platform::InputFile> OpenForReading(const std::string& path) override {
        const auto found = inner.files.find(path);
        if (found != inner.files.end()) found->second.facts.sizeBytes = found->second.bytes.size();
        return inner.OpenForReading(path);
    }
    platform::Creation CreateFolder(const std::string& path) override { return inner.CreateFolder(path); }
    bool RemoveFile(const std::string& path) override {
        const auto found = inner.files.find(path);
        if (found == inner.files.end()) return false;
        Require(IsWellFormed(found->second.bytes));
        ++partCount;
        return inner.RemoveFile(path);
    }
    bool RemoveFolder(const std::string& path) override { return inner.RemoveFolder(path); }
    bool Replace(const std::string& from, const std::string& to) override { return inner.Replace(from, to); }

private:
    bool takesArchive;
};

std::size_t Number(const std::string& bytes, std::size_t at, std::size_t size) {
    std::size_t value = 0;
    for (std::size_t i = size; i-- > 0;) {
        value = (value << 8) | static_cast<unsigned char>(bytes.at(at + i));
    }
    return value;
}

// Goes through the directory and looks at each entry.
void CheckArchive(const std::string& bytes) {
    const std::size_t end = bytes.size() - 22;
    Require(Number(bytes, end, 4) == 0x06054B50);
    std::size_t at = Number(bytes, end + 16, 4);
    const std::size_t count = Number(bytes, end + 10, 2);
    Require(count >= 10);
    for (std::size_t i = 0; i < count; ++i) {
        const std::size_t local = Number(bytes, at + 42, 4);
        const std::size_t start = local + 30 + Number(bytes, local + 26, 2) + Number(bytes, local + 28, 2);
        const auto content = inflate::Inflate(bytes.substr(start, Number(bytes, at + 20, 4)));
        Require(content.has_value() && content->bytes.size() == Number(bytes, at + 24, 4));
        const auto* data = reinterpret_cast<const std::uint8_t*>(content->bytes.data());
        Require(zip::Crc32(0, data, content->bytes.size()) == Number(bytes, at + 16, 4));
        at += 46 + Number(bytes, at + 28, 2) + Number(bytes, at + 30, 2);
    }
    Require(at == end);
}

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
    const bool isSaved = workbook.Save(std::wstring(target.begin(), target.end()));
    Require(isSaved == takesArchive && files.partCount >= 10);
    if (isSaved) CheckArchive(files.inner.files[target].bytes);
    Require(files.inner.folders.empty() && files.inner.files.size() <= 1);
    return 0;
}
