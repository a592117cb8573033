// A STEP file as a text with an index: where each entity stands, by its number and by its keyword. The text is looked
// over once; what an entity says is read when it is asked for.
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "workbench/ifc/step/Header.h"
#include "workbench/ifc/step/TextDecoder.h"
#include "workbench/ifc/step/Value.h"

namespace workbench::step {

/// Place of an entity among those of the file, which stand in the order of their numbers.
using EntityIndex = std::uint32_t;

struct ReadSettings {
    std::string codePage; ///< iconv's name, known to it, of the page of all strings; empty: what they hold decides
};

class StepFile {
public:
    /// Either the file or PROBLEM is set. TEXT is kept; needs beside it 20 bytes for each entity, and up to twice that
    /// while the numbers are put in order. Entity numbers may come in any order and be as large as 64 bits hold. Of
    /// entities with the same number the first counts. Instances of several types at once, which no IFC schema has, are
    /// left out.
    [[nodiscard]] static std::optional<StepFile> Read(std::string text, const ReadSettings& settings, Problem& problem);

    StepFile(const StepFile&) = delete;
    StepFile& operator=(const StepFile&) = delete;
    StepFile(StepFile&&) noexcept = default;
    StepFile& operator=(StepFile&&) noexcept = default;
    ~StepFile() = default;

    [[nodiscard]] const Header& GetHeader() const { return header; }
    [[nodiscard]] const CodePage& GetCodePage() const { return content->decoder.GetPage(); }
    [[nodiscard]] std::size_t CountEntities() const { return entries.size(); }
    /// Left out because of a number that came before, and because of several types.
    [[nodiscard]] std::size_t CountDoubled() const { return doubled; }
    [[nodiscard]] std::size_t CountComplex() const { return complex; }

    [[nodiscard]] std::optional<EntityIndex> Find(EntityNumber number) const;
    [[nodiscard]] EntityNumber GetNumber(EntityIndex entity) const { return entries[entity].number; }
    /// Index into GetKeywords.
    [[nodiscard]] std::size_t GetKeyword(EntityIndex entity) const { return entries[entity].keyword; }
    /// The arguments as a list.
    [[nodiscard]] Value GetArguments(EntityIndex entity) const;

    /// In capitals, in the order in which they occur first.
    [[nodiscard]] const std::vector<std::string>& GetKeywords() const { return keywords; }
    /// By number.
    [[nodiscard]] std::span<const EntityIndex> GetEntities(std::size_t keyword) const;

private:
    friend class Indexer;

    struct Entry {
        EntityNumber number = 0;
        std::uint64_t at : 48 = 0; ///< of the opening parenthesis
        std::uint64_t keyword : 16 = 0;
    };
    /// What values point to; stays where it is when the file is moved.
    struct Content {
        std::string text;
        TextDecoder decoder;
    };

    StepFile() = default;
    void PutInOrder();
    void GroupByKeyword();

    std::unique_ptr<Content> content;
    Header header;
    std::vector<Entry> entries; ///< by number
    std::vector<std::string> keywords;
    std::vector<EntityIndex> grouped;     ///< entities by keyword
    std::vector<std::size_t> groupStarts; ///< one more than keywords
    std::size_t doubled = 0;
    std::size_t complex = 0;
};

} // namespace workbench::step
