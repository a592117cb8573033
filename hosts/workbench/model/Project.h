// A project: the model, the undoable commands that change it, and where their changes are kept.
#pragma once

#include "workbench/model/Model.h"
#include "workbench/result/Result.h"

#include <functional>
#include <memory>
#include <string>

namespace workbench {

/// Keeps each command's changes as one transaction. The file behind it may be open in other processes too. After a
/// failure nothing was changed.
class ChangeStore {
public:
    virtual ~ChangeStore() = default;
    virtual Outcome Keep(const std::vector<Change>& changes) = 0;
    /// Whether another process has written since the last Reload, or since opening.
    virtual bool HasNews() = 0;
    /// Reads the whole model anew.
    virtual Outcome Reload(Model& model) = 0;
    /// Reads members, reservations and requests into the model, lets the change work on them and, when it answers true,
    /// writes them; all in one transaction, so that no other process comes between.
    virtual Outcome ChangeTeamwork(Model& model, const std::function<bool()>& change) = 0;
};

class Project {
public:
    Model model;
    std::string name; ///< UTF-8, of the file it came from without extension; empty for one that was never in a file
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

    /// Takes over what other processes have written; the steps that could be taken back are forgotten, as they belong
    /// to an older state. Nothing happens without news or during a command. Answers whether there was any.
    bool ReceiveChanges();
    /// Runs a change of members, reservations or requests against the present state of the file; it answers whether it
    /// changed any. Fails when the store does.
    Outcome ChangeTeamwork(const std::function<bool()>& change);

    /// Whether the store took what it was last given.
    const Outcome& GetStoreOutcome() const { return storeOutcome; }

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
    Outcome storeOutcome = Outcome::Done();
};

} // namespace workbench
