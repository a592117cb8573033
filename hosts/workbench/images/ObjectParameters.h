// Reads the parameters of placed objects: strings of text arrays, rows of numbers, single values.
#pragma once

#include "host/Libraries.h"

#include <string>
#include <vector>

namespace workbench {

class ObjectParameters {
public:
    explicit ObjectParameters(const std::vector<host::ObjectParameter>& parameters) : parameters(parameters) {}

    // Empty where there is no parameter of this name and kind. Texts are UTF-8.
    std::vector<std::string> GetTexts(const std::string& name) const;
    std::vector<double> GetNumbers(const std::string& name) const;
    std::string GetText(const std::string& name) const;

private:
    const host::ObjectParameter* Find(const std::string& name) const;

    const std::vector<host::ObjectParameter>& parameters;
};

} // namespace workbench
