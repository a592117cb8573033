// A project: the model, the undoable commands that change it, and where their changes are kept.
#pragma once

#include "workbench/model/Model.h"

#include <functional>
#include <memory>
#include <string>

namespace workbench {

/// Keeps each command's changes as one transaction.
class ChangeStore {
public:
    virtual ~ChangeStore() = default;
    /// Empty when the changes are kept; else one plain sentence, and none of them is.
    virtual std::string Keep(const std::vector<Change>& changes) = 0;
};

class Project {
public:
    Model model;
    /// Null: changes live in memory only.
    std::unique_ptr<ChangeStore> store;

    /// Runs the command; its changes are one undo step and one transaction of the store. A code other than 0, and a
    /// store that fails, take the changes back. UndoEmpty when nothing changed.
    host::ErrorCode CallUndoable(const std::string& name, const std::function<host::ErrorCode()>& command);
    bool IsInCommand() const { return isInCommand; }

    /// Applies a change and adds it to the running command. Only inside CallUndoable.
    void Record(Change change);

    /// The names of the steps that can be taken back and done again, the next one last.
    std::vector<std::string> ListUndoNames() const;
    std::vector<std::string> ListRedoNames() const;
    /// Takes back the last step. UndoEmpty when there is none; General when the store fails, with nothing changed.
    host::ErrorCode Undo();
    host::ErrorCode Redo();

    /// Why the store refused last; empty after a success.
    const std::string& GetStoreFailure() const { return storeFailure; }

private:
    struct Step {
        std::string name;
        std::vector<Change> changes;
    };

    bool KeepChanges(const std::vector<Change>& changes);
    void TakeBack(const std::vector<Change>& changes);
    host::ErrorCode MoveStep(std::vector<Step>& from, std::vector<Step>& to);

    bool isInCommand = false;
    std::vector<Change> running;
    std::vector<Step> undoSteps;
    std::vector<Step> redoSteps;
    std::string storeFailure;
};

} // namespace workbench
