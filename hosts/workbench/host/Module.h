// A loaded add-on module: finds its two exports, hands over the tables, and drives the four entry callbacks.
#pragma once

#include "host/Entry.h"
#include "workbench/host/WorkbenchHost.h"
#include "workbench/result/Result.h"

#include <filesystem>
#include <string>

namespace workbench {

class Module {
public:
    explicit Module(WorkbenchHost& host) : host(host) {}
    ~Module() { Unload(); }
    Module(const Module&) = delete;
    Module& operator=(const Module&) = delete;

    /// Loads the library and exchanges the tables.
    Outcome Load(const std::filesystem::path& file);
    /// Environment check, registration and initialisation in this order.
    Outcome Start();
    /// Frees and unloads; harmless when nothing is loaded.
    void Unload();

    bool IsStarted() const { return isStarted; }
    const host::Environment& GetEnvironment() const { return environment; }

private:
    WorkbenchHost& host;
    std::string name;
    void* library = nullptr;
    bool isStarted = false;
    host::ImportedFunctions imported;
    host::ExportedFunctions exported;
    host::Environment environment;
};

inline constexpr char AddOnFile[] = "Kelvarnix.apx";
inline constexpr char EnergyEvaluationFile[] = "EnergyEvaluation.apx";

/// A module's file beside the running program.
std::filesystem::path GetModulePath(const char* file);

} // namespace workbench
