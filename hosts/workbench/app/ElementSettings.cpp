#include "workbench/app/ElementSettings.h"

#include "workbench/app/GlobalId.h"
#include "workbench/app/Text.h"

#include "lca/Numbers.h"

namespace workbench {

namespace {

Outcome ParseValue(const std::string& text, ElementSetting& setting) {
    const auto fail = [&](const char* reason) {
        return Failure{UsageError, "--element " + setting.argument + ": " + reason};
    };
    if (setting.key == lca::PropertyKey::Include) {
        const std::string folded = FoldCase(text);
        if (folded != "1" && folded != "0" && folded != "true" && folded != "false") return fail("the value is 1 or 0");
        setting.value = host::Variant::OfBoolean(folded == "1" || folded == "true");
        return {};
    }
    const std::optional<double> number = lca::ParseDecimal(text);
    if (!number) return fail("the value is a number");
    setting.value = host::Variant::OfReal(*number);
    return {};
}

} // namespace

Outcome ParseElementSetting(const std::string& argument, ElementSetting& setting) {
    const auto fail = [&](const char* reason) { return Failure{UsageError, "--element " + argument + ": " + reason}; };
    const std::size_t colon = argument.find(':');
    const std::size_t equals = argument.find('=', colon == std::string::npos ? 0 : colon);
    if (colon == std::string::npos || equals == std::string::npos) return fail("write GUID:KEY=VALUE");
    const std::optional<host::Guid> guid = ReadGlobalId(argument.substr(0, colon));
    if (!guid) return fail("GUID is the element's GlobalId of 22 letters");
    const std::optional<lca::PropertyKey> key = lca::FindPropertyKey(argument.substr(colon + 1, equals - colon - 1));
    if (!key || !lca::IsElementKey(*key)) return fail("KEY is INCLUDE, GWPPERCENTAGE or GWP");
    setting.argument = argument;
    setting.element = *guid;
    setting.key = *key;
    return ParseValue(argument.substr(equals + 1), setting);
}

} // namespace workbench
