#include "workbench/images/ObjectParameters.h"

#include <QString>

namespace workbench {

std::vector<std::string> ObjectParameters::GetTexts(const std::string& name) const {
    std::vector<std::string> texts;
    const host::ObjectParameter* found = Find(name);
    if (found == nullptr || found->kind != host::ParameterKind::Text || !found->isArray) return texts;
    std::size_t begin = 0;
    for (std::size_t end; (end = found->textArray.find(u'\0', begin)) != std::u16string::npos; begin = end + 1)
        texts.push_back(QString::fromStdU16String(found->textArray.substr(begin, end - begin)).toStdString());
    return texts;
}

std::vector<double> ObjectParameters::GetNumbers(const std::string& name) const {
    const host::ObjectParameter* found = Find(name);
    return found == nullptr ? std::vector<double>() : found->realArray;
}

std::string ObjectParameters::GetText(const std::string& name) const {
    const host::ObjectParameter* found = Find(name);
    return found == nullptr ? std::string() : QString::fromStdU16String(found->text).toStdString();
}

const host::ObjectParameter* ObjectParameters::Find(const std::string& name) const {
    for (const host::ObjectParameter& parameter : parameters)
        if (parameter.name == name) return &parameter;
    return nullptr;
}

} // namespace workbench
