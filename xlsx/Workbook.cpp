#include "xlsx/Workbook.h"

#include "platform/System.h"
#include "platform/TemporaryFolder.h"
#include "platform/Text.h"
#include "xlsx/ChartWriter.h"
#include "xlsx/CommentsWriter.h"
#include "xlsx/NameRules.h"
#include "xlsx/PackageParts.h"
#include "xlsx/StylesWriter.h"
#include "xlsx/Theme.h"

#include <algorithm>
#include <set>

namespace Xlsx {

namespace {

std::string UserName() {
    const std::optional<std::string> narrow = platform::ReadEnvironmentVariable("USERNAME");
    const std::optional<std::wstring> wide = narrow ? platform::WideFromNarrow(*narrow) : std::nullopt;
    return wide && !wide->empty() ? platform::Utf8FromWide(*wide) : "Unknown";
}

} // namespace

CWorkbook::CWorkbook(const std::string& author, platform::FileLayer& files)
    : content(std::make_unique<WorkbookContent>(files)) {
    content->author = author.empty() ? UserName() : author;
}

CWorkbook::~CWorkbook() = default;

CWorksheet& CWorkbook::AddSheet(const std::string& title, const std::vector<ColumnWidth>& columns,
                                const SheetView& view) {
    const WorksheetContext context = {content->package, content->strings, content->comments, content->styles,
                                      content->refusals};
    auto sheet = std::make_unique<CWorksheet>(content->nextSheetId++, title, NewDrawing(), context, columns, view);
    CheckSheetName(sheet->GetTitle());
    return *content->worksheets.emplace_back(std::move(sheet));
}

CWorksheet& CWorkbook::AddSheet(const std::wstring& title, const std::vector<ColumnWidth>& columns,
                                const SheetView& view) {
    return AddSheet(platform::Utf8FromWide(title), columns, view);
}

CChartsheet& CWorkbook::AddChartsheet(const std::string& title) {
    CheckSheetName(title);
    content->chartsheets.push_back(
        std::make_unique<CChartsheet>(content->nextSheetId++, title, NewDrawing(), NewChart()));
    return *content->chartsheets.back();
}

CChart& CWorkbook::AddChart(CWorksheet& sheet, const Anchor& anchor) {
    CChart& chart = NewChart();
    sheet.GetDrawing().PlaceChart(chart, anchor);
    return chart;
}

void CWorkbook::AddPicture(CWorksheet& sheet, const std::wstring& path, ImageKind kind, const Anchor& anchor) {
    const std::optional<std::string> narrow = platform::NarrowFromWide(path);
    const std::optional<std::string> name = narrow ? content->media.Add(*narrow, kind) : std::nullopt;
    if (name)
        sheet.GetDrawing().PlacePicture(*name, anchor);
    else
        content->refusals.Add("picture '" + platform::Utf8FromWide(path) +
                              "' cannot be copied below the temporary folder '" + platform::GetTemporaryRoot() + "'");
}

unsigned CWorkbook::AddStyle(const Style& style) {
    return content->styles.AddStyle(style);
}

void CWorkbook::DefineName(const DefinedName& name) {
    content->definedNames.push_back(name);
}

void CWorkbook::SetActiveSheet(unsigned position) {
    content->activeSheet = position;
}

bool CWorkbook::Save(const std::wstring& path) {
    Refusals& refusals = content->refusals;
    if (isSpent) {
        refusals.Add("a workbook is saved once only");
        return false;
    }
    isSpent = true;
    if (content->worksheets.empty() && content->chartsheets.empty()) refusals.Add("a workbook without sheets");
    CheckDefinedNames();
    const bool isSaved = refusals.IsEmpty() && PackInto(path);
    for (const auto& sheet : content->worksheets) {
        sheet->Abandon();
    }
    content->package.Clear();
    return isSaved;
}

const std::string& CWorkbook::GetFailure() const {
    return content->refusals.GetFirst();
}

bool CWorkbook::PackInto(const std::wstring& path) {
    const std::optional<std::string> narrow = platform::NarrowFromWide(path);
    if (!narrow || path.find(L'\0') != std::wstring::npos) {
        content->refusals.Add("'" + platform::Utf8FromWide(path) + "' is no path here");
    } else if (!WriteParts()) {
        content->refusals.Add("a part cannot be written below the temporary folder '" + platform::GetTemporaryRoot() +
                              "'");
    } else if (!content->package.Pack(*narrow)) {
        content->refusals.Add("'" + platform::Utf8FromWide(path) + "' cannot be written");
    } else {
        return true;
    }
    return false;
}

void CWorkbook::CheckSheetName(const std::string& title) {
    const bool isNew = content->sheetNames.insert(WithoutCase(title)).second;
    if (!IsSheetName(title) || !isNew)
        content->refusals.Add("'" + title + "' as the name of " + (isNew ? "a sheet" : "a second sheet"));
}

void CWorkbook::CheckDefinedNames() {
    std::set<std::string> taken; // with the sheet that a name is seen in
    for (const DefinedName& each : content->definedNames) {
        const bool isSheetThere = !each.sheetPosition || *each.sheetPosition + 1 < content->nextSheetId;
        const std::string scope = each.sheetPosition ? std::to_string(*each.sheetPosition) : std::string();
        const std::size_t letters = LetterCount(each.formula);
        const bool isSound = IsDefinedName(each.name) && letters > 0 && letters <= MostFormulaLetters && isSheetThere;
        if (!isSound || !taken.insert(scope + "!" + WithoutCase(each.name)).second)
            content->refusals.Add("'" + each.name + "' as a defined name with this sheet and formula");
    }
}

CDrawing& CWorkbook::NewDrawing() {
    const unsigned number = static_cast<unsigned>(content->drawings.size() + 1);
    return *content->drawings.emplace_back(std::make_unique<CDrawing>(number));
}

CChart& CWorkbook::NewChart() {
    const unsigned number = static_cast<unsigned>(content->charts.size() + 1);
    return *content->charts.emplace_back(std::make_unique<CChart>(number));
}

bool CWorkbook::WriteParts() {
    return WriteCoreProperties(*content, platform::GetLocalTime()) && WriteApplicationProperties(*content) &&
           WriteContentTypes(*content) && WriteTheme(content->package) &&
           WriteComments(content->package, content->comments, content->author) && WriteSharedStrings(*content) &&
           WriteStyles(content->package, content->styles) && WriteWorkbook(*content) && WriteSheets();
}

bool CWorkbook::WriteSheets() {
    Package& package = content->package;
    const auto all = [](const auto& list, const auto& write) {
        return std::all_of(list.begin(), list.end(), [&](const auto& each) { return write(*each); });
    };
    return all(content->worksheets, [](CWorksheet& sheet) { return sheet.Finish(); }) &&
           all(content->chartsheets, [&](const CChartsheet& sheet) { return sheet.Write(package); }) &&
           all(content->charts, [&](const CChart& chart) { return WriteChart(package, chart); }) &&
           all(content->drawings, [&](const CDrawing& drawing) { return drawing.Write(package); });
}

} // namespace Xlsx
