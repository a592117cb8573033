// Role: texts of the add-on's resources, and how numbers, times and letters are written.
#pragma once

#include "host/Values.h"

namespace host {

class Resources {
public:
    virtual ~Resources() = default;

    /// Entry (counted from 1) of a string list of the add-on; empty if it does not exist.
    virtual std::string ReadString(std::int16_t stringList, std::int16_t entry) = 0;
    /// The pair that identifies the add-on to the host and to other add-ons, from the module id resource with this
    /// number. ArchiCAD is not known to have a function for this; its adapter gets it from the build of the resources.
    virtual ModuleId ReadModuleId(std::int16_t number) = 0;

    // ArchiCAD is not known to have functions for the next three; its adapter brings them along.

    /// A number as a unit-aware formatter writes it for a format code; code 3 is two decimals.
    virtual std::string FormatNumber(double value, std::int16_t formatCode) = 0;
    /// The current local time as a time formatter writes it for these flags; 528 is date and time.
    virtual std::string FormatCurrentTime(std::uint32_t flags) = 0;
    /// Lower case of every letter that has one, in any script.
    virtual std::string ToLowerCase(const std::string& text) = 0;
};

} // namespace host
