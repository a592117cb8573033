#include "workbench/app/ElementSettings.h"

#include "workbench/app/GlobalId.h"
#include "workbench/app/Text.h"

#include "lca/Numbers.h"

namespace workbench {

namespace {

Result<host::Variant> ParseValue(lca::PropertyKey key, const std::string& text) {
    if (key == lca::PropertyKey::Include) {
        const std::string folded = FoldCase(text);
        if (folded != "1" && folded != "0" && folded != "true" && folded != "false")
            return Failure::Usage("the value is 1 or 0");
        return host::Variant::OfBoolean(folded == "1" || folded == "true");
    }
    const std::optional<double> number = lca::ParseDecimal(text);
    if (!number) return Failure::Usage("the value is a number");
    return host::Variant::OfReal(*number);
}

} // namespace

Result<ElementSetting> ParseElementSetting(const std::string& text) {
    const std::size_t colon = text.find(':');
    const std::size_t equals = text.find('=', colon == std::string::npos ? 0 : colon);
    if (colon == std::string::npos || equals == std::string::npos) return Failure::Usage("write GUID:KEY=VALUE");
    const std::optional<host::Guid> guid = ReadGlobalId(text.substr(0, colon));
    if (!guid) return Failure::Usage("GUID is the element's GlobalId of 22 letters");
    const lca::PropertyKeyRow* row = lca::FindPropertyKey(text.substr(colon + 1, equals - colon - 1));
    if (row == nullptr || row->owner != lca::KeyOwner::Element)
        return Failure::Usage("KEY is INCLUDE, GWPPERCENTAGE or GWP");
    Result<host::Variant> value = ParseValue(row->key, text.substr(equals + 1));
    if (value.HasFailed()) return value.GetFailure();
    return ElementSetting{text, *guid, row->key, value.Take()};
}

} // namespace workbench
