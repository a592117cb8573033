// Where values of a model came from, told in plain English.
#pragma once

#include <map>
#include <memory>
#include <string>

namespace workbench {

/// Texts by field. An element has "volume", "area" and "shares" (how they are split among its materials), a building
/// material has "density".
using Origins = std::map<std::string, std::string>;

namespace OriginFields {
inline constexpr char Volume[] = "volume";
inline constexpr char Area[] = "area";
inline constexpr char Shares[] = "shares";
inline constexpr char Density[] = "density";
} // namespace OriginFields

/// Most elements share few origins, which then stand in memory once.
class OriginPool {
public:
    /// Null where there is no text.
    std::shared_ptr<const Origins> Share(const Origins& origins);

private:
    std::map<Origins, std::shared_ptr<const Origins>> known;
};

/// Adds the text, unless it is empty.
void PutOrigin(Origins& origins, const char* field, const std::string& text);

/// Empty where nothing is known.
std::string FindOrigin(const Origins& origins, const char* field);

} // namespace workbench
