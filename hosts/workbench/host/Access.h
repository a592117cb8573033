// Whether a change is allowed now: inside an undoable command, and in a shared project with the guarding set held.
#pragma once

#include "host/Teamwork.h"
#include "workbench/model/Project.h"

namespace workbench {

class Access {
public:
    explicit Access(Project*& project) : project(project) {}

    /// The member as whom this process acts; counts only in a shared project.
    std::int16_t userId = 0;

    /// NoProject, NeedsUndoScope, NoAccessRight or success.
    host::ErrorCode Check(const char* lockableSet) const {
        if (project == nullptr) return host::Errors::NoProject;
        if (!project->IsInCommand()) return host::Errors::NeedsUndoScope;
        return IsHeld(lockableSet) ? host::NoError : host::Errors::NoAccessRight;
    }

private:
    bool IsHeld(const char* lockableSet) const {
        if (!project->model.IsShared()) return true;
        for (const Reservation& reservation : project->model.reservations)
            if (reservation.lockableSet == lockableSet) return reservation.userId == userId;
        return false;
    }

    Project*& project;
};

} // namespace workbench
