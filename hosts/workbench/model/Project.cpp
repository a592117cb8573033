#include "workbench/model/Project.h"

#include <algorithm>
#include <cassert>

namespace workbench {

host::ErrorCode Project::CallUndoable(const std::string& name, const std::function<host::ErrorCode()>& command) {
    if (isInCommand) return host::Errors::RefusedCommand;
    isInCommand = true;
    running.clear();
    host::ErrorCode error = host::Errors::General;
    try {
        error = command();
    } catch (...) {
        isInCommand = false;
        TakeBack(running);
        throw;
    }
    isInCommand = false;
    if (error == host::NoError && running.empty()) return host::Errors::UndoEmpty;
    if (error == host::NoError && !KeepChanges(running)) error = host::Errors::General;
    if (error != host::NoError) {
        TakeBack(running);
        return error;
    }
    undoSteps.push_back({name, std::move(running)});
    redoSteps.clear();
    running.clear();
    return host::NoError;
}

void Project::Record(Change change) {
    assert(isInCommand);
    model.Apply(change);
    running.push_back(std::move(change));
}

std::vector<std::string> Project::ListUndoNames() const {
    std::vector<std::string> names;
    for (const Step& step : undoSteps)
        names.push_back(step.name);
    return names;
}

std::vector<std::string> Project::ListRedoNames() const {
    std::vector<std::string> names;
    for (const Step& step : redoSteps)
        names.push_back(step.name);
    return names;
}

host::ErrorCode Project::Undo() {
    return MoveStep(undoSteps, redoSteps);
}

host::ErrorCode Project::Redo() {
    return MoveStep(redoSteps, undoSteps);
}

host::ErrorCode Project::MoveStep(std::vector<Step>& from, std::vector<Step>& to) {
    if (isInCommand) return host::Errors::RefusedCommand;
    if (from.empty()) return host::Errors::UndoEmpty;
    Step reversed{from.back().name, {}};
    for (auto change = from.back().changes.rbegin(); change != from.back().changes.rend(); ++change)
        reversed.changes.push_back(change->GetInverse());
    if (!KeepChanges(reversed.changes)) return host::Errors::General;
    for (const Change& change : reversed.changes)
        model.Apply(change);
    to.push_back(std::move(reversed));
    from.pop_back();
    return host::NoError;
}

bool Project::ReceiveChanges() {
    if (isInCommand || !store || !store->HasNews()) return false;
    storeOutcome = store->Reload(model);
    if (storeOutcome.HasFailed()) return false;
    undoSteps.clear();
    redoSteps.clear();
    return true;
}

Outcome Project::ChangeTeamwork(const std::function<bool()>& change) {
    storeOutcome = Outcome::Done();
    if (store)
        storeOutcome = store->ChangeTeamwork(model, change);
    else
        change();
    return storeOutcome;
}

bool Project::KeepChanges(const std::vector<Change>& changes) {
    storeOutcome = store ? store->Keep(changes) : Outcome::Done();
    return !storeOutcome.HasFailed();
}

void Project::TakeBack(const std::vector<Change>& changes) {
    std::for_each(changes.rbegin(), changes.rend(), [&](const Change& change) { model.Apply(change.GetInverse()); });
}

} // namespace workbench
