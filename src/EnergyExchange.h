// The exchange with the energy evaluation: introduces the add-on as an export target, says which data it wants, and
// takes them into the project record. Shows nothing to the user; what fails is an error code.
#pragma once

#include "host/Host.h"
#include "host/ObjectState.h"
#include "host/Values.h"

class AddOnContext;

/// Whether the energy evaluation is there and switched on.
bool IsEnergyEvaluationEnabled(host::Host& host);
/// Switches the energy evaluation on where it is off, and puts the add-on among its export targets.
host::ErrorCode RegisterExportTarget(host::Host& host);
host::ErrorCode UnregisterExportTarget(host::Host& host);

/// Writes into the settings that the yearly values of the three data sets are wanted; an empty tree gets them made.
void AnswerExportSettings(host::ObjectState& settings);

/// Takes each whole part of the document as values of the energy evaluation, chooses them and stores the record; then
/// an open palette is updated. Answers the reading's error or the first of the storings, after which the other parts
/// are still taken.
host::ErrorCode TakeExportedData(host::Host& host, AddOnContext& context, const std::string& document);
