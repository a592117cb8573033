// Properties and classifications of the project as the add-on sees them, with the host's rules: changes only inside an
// undoable command and with the right to make them, names unique, values only where a definition is available.
#pragma once

#include "host/Properties.h"
#include "workbench/host/Access.h"
#include "workbench/model/Project.h"

namespace workbench {

class PropertiesRole : public host::Properties {
public:
    PropertiesRole(Project*& project, const Access& access) : project(project), access(access) {}

    host::ErrorCode ListGroups(std::vector<host::PropertyGroup>& groups) override;
    host::ErrorCode CreateGroup(host::PropertyGroup& group) override;
    host::ErrorCode ListDefinitions(const host::Guid& group,
                                    std::vector<host::PropertyDefinition>& definitions) override;
    host::ErrorCode CreateDefinition(host::PropertyDefinition& definition) override;
    host::ErrorCode ChangeDefinition(const host::PropertyDefinition& definition) override;
    host::ErrorCode ReadElementValues(const host::Guid& element, const std::vector<host::Guid>& definitions,
                                      std::vector<host::PropertyValue>& values) override;
    host::ErrorCode ReadMaterialValues(host::AttributeIndex material, const std::vector<host::Guid>& definitions,
                                       std::vector<host::PropertyValue>& values) override;
    host::ErrorCode WriteMaterialValues(host::AttributeIndex material,
                                        const std::vector<host::PropertyValue>& values) override;

    /// As WriteMaterialValues, for an element; what a person does in the element's settings.
    host::ErrorCode WriteElementValues(const host::Guid& element, const std::vector<host::PropertyValue>& values);

private:
    /// A definition that was asked for, looked up once for many elements.
    struct Asked {
        const host::PropertyDefinition* definition = nullptr;
        host::Variant unset;
    };

    void LookUp(const std::vector<host::Guid>& definitions);
    bool IsAvailable(std::size_t asked, const host::Guid& classification);
    bool IsAvailableToMaterial(const host::PropertyDefinition& definition, host::AttributeIndex material) const;
    host::ErrorCode CheckDefinition(const host::PropertyDefinition& definition) const;

    Project*& project;
    const Access& access;
    // Of the last ReadElementValues: the same definitions are asked of element after element.
    std::vector<host::Guid> askedGuids;
    std::vector<Asked> asked;
    std::uint64_t askedRevision = 0;
    host::Guid lastClassification;
    std::vector<bool> lastAvailable;
    bool hasLastAvailable = false;
};

class ClassificationsRole : public host::Classifications {
public:
    ClassificationsRole(Project*& project, const Access& access) : project(project), access(access) {}

    host::ErrorCode ListSystems(std::vector<host::ClassificationSystem>& systems) override;
    host::ErrorCode CreateSystem(host::ClassificationSystem& system) override;
    host::ErrorCode ListRootItems(const host::Guid& system, std::vector<host::ClassificationItem>& items) override;
    host::ErrorCode ListChildItems(const host::Guid& item, std::vector<host::ClassificationItem>& items) override;
    host::ErrorCode CreateRootItem(const host::Guid& system, host::ClassificationItem& item) override;
    host::ErrorCode ReadMaterialClassifications(host::AttributeIndex material,
                                                std::vector<host::Classification>& list) override;
    host::ErrorCode ClassifyMaterial(host::AttributeIndex material, const host::Guid& item) override;

private:
    Project*& project;
    const Access& access;
};

} // namespace workbench
