#include "workbench/ifc/step/StepFile.h"

#include <algorithm>
#include <charconv>
#include <limits>
#include <unordered_map>

#include "workbench/ifc/step/Lexis.h"

namespace workbench::step {
namespace {

/// All schemas together have some 2400 kinds of entity.
constexpr std::size_t MostKeywords = 4096;
constexpr std::size_t MostEntities = std::numeric_limits<EntityIndex>::max();
/// "#1=IFCX();"
constexpr std::size_t ShortestStatement = 10;

struct TextHash {
    using is_transparent = void; // NOLINT(readability-identifier-naming): looked for by this name
    std::size_t operator()(std::string_view text) const { return std::hash<std::string_view>()(text); }
};

} // namespace

/// Looks over the data once.
class Indexer : private StringListener {
public:
    Indexer(StepFile& file, std::string_view text) : file(file), text(text), at(file.header.dataOffset) {}

    /// The problem, where there is one.
    std::optional<Problem> Run() {
        Reserve();
        for (;;) {
            start = SkipWhiteSpace(text, at);
            at = SkipBlanks(text, start);
            if (at >= text.size()) return CutOffAt(text, start);
            if (text[at] != '#' && TakeSectionEnd()) {
                if (!TakeSectionStart()) return std::nullopt;
                continue;
            }
            const Balance balance = TakeInstance();
            if (balance == Balance::CutOff) return CutOffAt(text, start);
            if (balance == Balance::Noise) return DamagedAt(text, start);
        }
    }

    CodePageEvidence evidence;

private:
    void TakeString(std::string_view coded) override { evidence.Take(coded); }

    /// An upper bound, so that the index never moves.
    void Reserve() {
        const auto statements = static_cast<std::size_t>(std::count(text.begin(), text.end(), ';'));
        file.entries.reserve(std::min(statements, text.size() / ShortestStatement));
    }

    bool TakeSectionEnd() { return TakeWord("ENDSEC") && TakeCharacter(';'); }

    /// A file may have several sections of data.
    bool TakeSectionStart() {
        at = SkipBlanks(text, at);
        if (!TakeWord("DATA")) return false;
        at = SkipBlanks(text, at);
        if (at < text.size() && text[at] == '(' && SkipList(text, at, nullptr) != Balance::Closed) return false;
        return TakeCharacter(';');
    }

    bool TakeWord(std::string_view word) {
        const std::size_t end = SkipWord(text, std::min(at, text.size()));
        if (UpperCase(text.substr(std::min(at, text.size()), end - at)) != word) return false;
        at = end;
        return true;
    }

    /// Also where blanks stand before it.
    bool TakeCharacter(char wanted) {
        at = SkipBlanks(text, at);
        if (at >= text.size() || text[at] != wanted) return false;
        ++at;
        return true;
    }

    /// What it means that something else stands here than was expected.
    [[nodiscard]] Balance Unexpected() const { return at >= text.size() ? Balance::CutOff : Balance::Noise; }

    /// "#12=IFCWALL(...);"
    Balance TakeInstance() {
        if (!TakeCharacter('#')) return Unexpected();
        EntityNumber number = 0;
        const auto [end, error] = std::from_chars(text.data() + at, text.data() + text.size(), number);
        at = static_cast<std::size_t>(end - text.data());
        if (error != std::errc() || !TakeCharacter('=')) return Unexpected();
        at = SkipBlanks(text, at);
        if (at >= text.size()) return Balance::CutOff;
        return text[at] == '(' ? TakeComplex() : TakeSimple(number);
    }

    Balance TakeComplex() {
        ++file.complex;
        return TakeRest();
    }

    Balance TakeSimple(EntityNumber number) {
        const std::size_t word = at;
        at = SkipWord(text, at);
        const std::optional<std::size_t> keyword = FindKeyword(text.substr(word, at - word));
        at = SkipBlanks(text, at);
        if (at >= text.size()) return Balance::CutOff;
        if (!keyword || text[at] != '(' || file.entries.size() == MostEntities) return Balance::Noise;
        file.entries.push_back({number, at, *keyword});
        return TakeRest();
    }

    Balance TakeRest() {
        const Balance balance = SkipList(text, at, this);
        if (balance != Balance::Closed) return balance;
        return TakeCharacter(';') ? Balance::Closed : Unexpected();
    }

    /// Nothing for a word that is no keyword of IFC, and where there are more kinds of them than any schema has.
    std::optional<std::size_t> FindKeyword(std::string_view written) {
        const auto known = keywords.find(written);
        if (known != keywords.end()) return known->second;
        std::string keyword = UpperCase(written);
        if (!keyword.starts_with("IFC") || keywords.size() > MostKeywords) return std::nullopt;
        const auto [place, isNew] = keywords.emplace(keyword, file.keywords.size());
        const std::size_t index = place->second;
        if (isNew) file.keywords.push_back(std::move(keyword));
        keywords.emplace(written, index);
        return index;
    }

    StepFile& file;
    std::string_view text;
    std::size_t at;
    std::size_t start = 0;                                                            ///< of the statement
    std::unordered_map<std::string, std::size_t, TextHash, std::equal_to<>> keywords; ///< as written and in capitals
};

std::optional<StepFile> StepFile::Read(std::string text, const ReadSettings& settings, Problem& problem) {
    StepFile file;
    auto header = ReadHeader(text, problem);
    if (!header) return std::nullopt;
    file.header = std::move(*header);
    file.content = std::make_unique<Content>();
    file.content->text = std::move(text);
    Indexer indexer(file, file.content->text);
    if (auto found = indexer.Run()) {
        problem = std::move(*found);
        return std::nullopt;
    }
    const bool isGiven = !settings.codePage.empty();
    file.content->decoder =
        TextDecoder(isGiven ? CodePage{.name = settings.codePage, .isRawUtf8 = false} : indexer.evidence.Decide());
    file.PutInOrder();
    file.GroupByKeyword();
    return file;
}

void StepFile::PutInOrder() {
    const auto before = [](const Entry& a, const Entry& b) { return a.number < b.number; };
    const auto same = [](const Entry& a, const Entry& b) { return a.number == b.number; };
    if (!std::is_sorted(entries.begin(), entries.end(), before))
        std::stable_sort(entries.begin(), entries.end(), before);
    const auto end = std::unique(entries.begin(), entries.end(), same);
    doubled = static_cast<std::size_t>(entries.end() - end);
    entries.erase(end, entries.end());
}

void StepFile::GroupByKeyword() {
    groupStarts.assign(keywords.size() + 1, 0);
    for (const Entry& entry : entries)
        ++groupStarts[entry.keyword + 1];
    for (std::size_t i = 1; i < groupStarts.size(); ++i)
        groupStarts[i] += groupStarts[i - 1];
    grouped.resize(entries.size());
    std::vector<std::size_t> next = groupStarts;
    for (std::size_t i = 0; i < entries.size(); ++i)
        grouped[next[entries[i].keyword]++] = static_cast<EntityIndex>(i);
}

std::optional<EntityIndex> StepFile::Find(EntityNumber number) const {
    const auto found = std::lower_bound(entries.begin(), entries.end(), number,
                                        [](const Entry& entry, EntityNumber wanted) { return entry.number < wanted; });
    if (found == entries.end() || found->number != number) return std::nullopt;
    return static_cast<EntityIndex>(found - entries.begin());
}

Value StepFile::GetArguments(EntityIndex entity) const {
    return {std::string_view(content->text).substr(entries[entity].at), content->decoder};
}

std::span<const EntityIndex> StepFile::GetEntities(std::size_t keyword) const {
    return std::span(grouped).subspan(groupStarts[keyword], groupStarts[keyword + 1] - groupStarts[keyword]);
}

} // namespace workbench::step
