// The entry without the module's exports, as a build links it that the host's own library loads: environment check,
// registration, initialisation and freeing, with what fails in each.
#include "src/Entry.h"
#include "src/AddOnContext.h"
#include "src/Kelvarnix.h"

#include "host/EnergyExchange.h"
#include "host/Entry.h"

#include <gtest/gtest.h>

#include "FailingAllocation.h"
#include "support/NullHost.h"

#include <algorithm>
#include <functional>
#include <map>

namespace {

class RecordingRegistration : public test::NullRegistration {
public:
    void KeepInMemory(bool keep) override { calls.push_back(keep ? "keep" : "drop"); }
    host::ErrorCode RegisterMenu(std::int16_t menu, std::int16_t prompt) override {
        return Note("menu " + std::to_string(menu) + " " + std::to_string(prompt));
    }
    host::ErrorCode RegisterSupportedCommand(std::uint32_t code, std::int32_t version) override {
        return Note("command " + Letters(code) + " " + std::to_string(version));
    }
    host::ErrorCode InstallMenuHandler(std::int16_t menu, host::MenuHandler handler) override {
        menuHandler = handler;
        return Note("handler " + std::to_string(menu));
    }
    host::ErrorCode InstallSettingsCommandHandler(std::uint32_t code, std::int32_t version,
                                                  host::SettingsCommandHandler handler) override {
        settingsHandler = handler;
        return Note("settings handler " + Letters(code) + " " + std::to_string(version));
    }
    host::ErrorCode InstallDocumentCommandHandler(std::uint32_t code, std::int32_t version,
                                                  host::DocumentCommandHandler handler) override {
        documentHandler = handler;
        return Note("document handler " + Letters(code) + " " + std::to_string(version));
    }
    host::ErrorCode InstallProjectEventHandler(std::uint32_t events, host::ProjectEventHandler handler) override {
        eventHandler = handler;
        return Note(events == host::AllProjectEvents ? "all events" : "some events");
    }
    host::ErrorCode InstallReservationChangeHandler(host::ReservationChangeHandler handler,
                                                    const std::set<host::Guid>& sets) override {
        reservationHandler = handler;
        return Note("reservations " + std::to_string(sets.size()));
    }

    host::ErrorCode SetMenuItemText(std::int16_t, std::int32_t, const std::string&) override { return Note("text"); }

    std::vector<std::string> calls;
    std::map<std::string, host::ErrorCode> failures; ///< by call
    host::MenuHandler menuHandler = nullptr;
    host::ProjectEventHandler eventHandler = nullptr;
    host::ReservationChangeHandler reservationHandler = nullptr;
    host::SettingsCommandHandler settingsHandler = nullptr;
    host::DocumentCommandHandler documentHandler = nullptr;

private:
    static std::string Letters(std::uint32_t code) {
        std::string text;
        for (int shift = 24; shift >= 0; shift -= 8)
            text += static_cast<char>((code >> shift) & 255U);
        return text;
    }
    host::ErrorCode Note(const std::string& call) {
        calls.push_back(call);
        return failures[call];
    }
};

class NumberedTeamwork : public test::NullTeamwork {
    host::Guid FindLockableSet(const std::string& name) override {
        host::Guid guid;
        guid.bytes[0] = name == "ClassificationsAndProperties" ? 1 : name == "BuildingMaterials" ? 2 : 0;
        return guid;
    }
};

class NumberedResources : public test::NullResources {
    std::string ReadString(std::int16_t list, std::int16_t entry) override {
        return std::to_string(list) + "/" + std::to_string(entry);
    }
};

/// A document with key values; not read further than that.
class KeyValuesReader : public host::DOMReader {
public:
    bool EnterElement(const std::string& name) override {
        if (name != "projectKeyValuesData" && name != "grossFloorArea" && name != "co2emission") return false;
        path.push_back(name);
        return true;
    }
    bool EnterNextElement() override { return false; }
    void LeaveElement() override { path.pop_back(); }
    std::string ReadText() const override { return path.back() == "grossFloorArea" ? "100" : "2000"; }

private:
    std::vector<std::string> path;
};

class KeyValuesReading : public host::XmlReading {
    host::ErrorCode ReadDocument(const std::string&, const std::string& root,
                                 std::unique_ptr<host::DOMReader>& reader) override {
        EXPECT_EQ(root, "root");
        reader = std::make_unique<KeyValuesReader>();
        return host::NoError;
    }
};

/// Like a host that leaves to the add-on what is open when it frees it.
class KeepingDialogs : public test::NullDialogs {
public:
    host::ErrorCode RegisterPalette(std::int16_t resource, const host::Guid& palette,
                                    host::PaletteRequestHandler handler) override {
        EXPECT_EQ(resource, 32406);
        request = handler;
        return palettes.insert(palette).second ? host::NoError : host::Errors::BadId;
    }
    host::ErrorCode UnregisterPalette(const host::Guid& palette) override {
        return palettes.erase(palette) == 1 ? host::NoError : host::Errors::BadId;
    }
    host::DialogId OpenPalette(const host::Guid& palette, host::DialogHandler& handler) override {
        return palettes.count(palette) == 1 ? Open(handler) : host::DialogId();
    }
    std::int16_t RunModal(std::int16_t, const host::Guid&, host::DialogHandler& handler) override {
        const host::DialogId id = Open(handler);
        if (whileModal) whileModal();
        if (handlers.count(id.value) == 0) return 0;
        Close(id);
        return 1;
    }
    void Close(host::DialogId id) override {
        Send(id, host::DialogMessage::Close);
        handlers.erase(id.value);
    }
    std::int16_t Send(host::DialogId id, host::DialogMessage message, std::int16_t item = 0) {
        return handlers.at(id.value)->HandleDialogMessage(message, id, item, {});
    }

    std::set<host::Guid> palettes;
    host::PaletteRequestHandler request = nullptr;
    std::map<std::int16_t, host::DialogHandler*> handlers; ///< of the open dialogs
    std::function<void()> whileModal;

private:
    host::DialogId Open(host::DialogHandler& handler) {
        const host::DialogId id{++lastId};
        handlers[id.value] = &handler;
        Send(id, host::DialogMessage::Initialise);
        return id;
    }
    std::int16_t lastId = 0;
};

class EntryTest : public testing::Test {
protected:
    void SetUp() override {
        host.registration = &registration;
        host.teamwork = &teamwork;
        host.resources = &resources;
        host.xmlReading = &xmlReading;
        host.dialogs = &dialogs;
        Entry::SetHost(&host);
    }
    void TearDown() override { EXPECT_EQ(Entry::FreeData(), host::NoError); }

    RecordingRegistration registration;
    NumberedTeamwork teamwork;
    NumberedResources resources;
    KeyValuesReading xmlReading;
    KeepingDialogs dialogs;
    test::NullHost host;
};

using Calls = std::vector<std::string>;

TEST_F(EntryTest, RegistersInTheOrderOfTheMenuWhateverFails) {
    registration.failures = {{"menu 32504 32514", 0x10}, {"command SRDT 1", 0x04}};
    EXPECT_EQ(Entry::RegisterInterface(), 0x14);
    EXPECT_EQ(registration.calls, (Calls{"menu 32500 32510", "menu 32504 32514", "menu 32501 32511", "menu 32502 32512",
                                         "menu 32503 32513", "command GRSC 1", "command SRDT 1"}));
}

/// Whatever is open, by a command or from the palette, and however the add-on's object ends.
TEST_F(EntryTest, NothingThatIsOpenOutlivesTheObject) {
    const std::function<void()> endings[] = {[] { EXPECT_EQ(Entry::FreeData(), host::NoError); },
                                             [] { EXPECT_EQ(Entry::Initialise(), host::NoError); }};
    constexpr std::int16_t MaterialReportButton = 17;
    for (const auto& end : endings)
        for (const std::int16_t open :
             {std::int16_t{0}, std::int16_t{32501}, std::int16_t{32502}, std::int16_t{32504}, MaterialReportButton}) {
            ASSERT_EQ(Entry::Initialise(), host::NoError);
            EXPECT_EQ(registration.menuHandler({32500, 1}), 0);
            ASSERT_EQ(dialogs.handlers.size(), 1U);
            const AddOnContext* former = GetContext().get();
            int ends = 0;
            dialogs.whileModal = [&] {
                EXPECT_EQ(dialogs.handlers.size(), 2U);
                end();
                ++ends;
                EXPECT_TRUE(dialogs.handlers.empty()) << open; // what else would get the host's next message?
                EXPECT_EQ(dialogs.palettes.size(), GetContext() == nullptr ? 0U : 1U);
                EXPECT_NE(GetContext().get(), former); // which still stands until its last function is left
            };
            registration.calls.clear();
            if (open == 0)
                end();
            else if (open == MaterialReportButton)
                dialogs.Send({dialogs.handlers.begin()->first}, host::DialogMessage::Click, open);
            else
                EXPECT_EQ(registration.menuHandler({open, 1}), 0);
            EXPECT_EQ(ends, open == 0 ? 0 : 1);
            EXPECT_TRUE(dialogs.handlers.empty()) << open;
            // The menu is not spoken to any more.
            EXPECT_EQ(std::count(registration.calls.begin(), registration.calls.end(), "text"), 0);
            dialogs.whileModal = nullptr;
            EXPECT_EQ(Entry::FreeData(), host::NoError);
            EXPECT_TRUE(dialogs.palettes.empty());
        }
}

TEST_F(EntryTest, TheHostMayAskForThePalette) {
    ASSERT_EQ(Entry::Initialise(), host::NoError);
    ASSERT_EQ(dialogs.palettes.size(), 1U);
    EXPECT_EQ(host::WriteGuid(*dialogs.palettes.begin()), "{E2ADBC68-AD7B-4AFF-9115-86328A1FBA94}");
    for (int times = 0; times < 2; ++times) { // asked again it stays open
        EXPECT_EQ(dialogs.request(*dialogs.palettes.begin()), 0);
        EXPECT_EQ(dialogs.handlers.size(), 1U);
    }
    EXPECT_EQ(registration.menuHandler({32500, 1}), 0); // and the menu's next command hides it
    EXPECT_TRUE(dialogs.handlers.empty());
    registration.calls.clear();
    EXPECT_EQ(dialogs.request({}), 0);
    EXPECT_EQ(registration.calls, Calls{"keep"}); // asked for at each callback
    EXPECT_TRUE(dialogs.handlers.empty());
    const host::Guid palette = *dialogs.palettes.begin();
    EXPECT_EQ(Entry::FreeData(), host::NoError);
    EXPECT_EQ(dialogs.request(palette), 1);
}

TEST_F(EntryTest, ProjectEventsResetOrLoadTheRecord) {
    ASSERT_EQ(Entry::Initialise(), host::NoError);
    lca::LCAProjectData& record = GetContext()->projectData;
    record.consideredServiceLifeYears = 7;
    record.floorChoice[lca::FloorQuantity::SolarPanels] = true;
    EXPECT_EQ(registration.eventHandler(host::ProjectEvent::WindowChanged, 0), 0);
    EXPECT_EQ(record.floorChoice.size(), 1U);
    EXPECT_EQ(registration.eventHandler(host::ProjectEvent::Open, 0), 0);
    // A model without definitions gives the defaults and nothing of the project before it.
    EXPECT_EQ(record, lca::LCAProjectData());
    record.consideredServiceLifeYears = 7;
    EXPECT_EQ(registration.eventHandler(host::ProjectEvent::NewAndReset, 0), 0);
    EXPECT_EQ(record.consideredServiceLifeYears, 50U);
}

TEST_F(EntryTest, AFailedAllocationLeavesThePointerEmptyAndTheRestInstalled) {
    ASSERT_EQ(Entry::Initialise(), host::NoError);
    const Calls complete = registration.calls;
    EXPECT_EQ(complete.front(), "keep");
    ASSERT_FALSE(Entry::FreeData());
    int withoutContext = 0, cutShort = 0;
    // Initialisation takes some allocations; each fails in turn until one run gets through untouched.
    for (long n = 0; n < 1000; ++n) {
        registration.calls.clear();
        registration.calls.reserve(64); // so that the recording itself allocates less in between
        failAfter = n;
        const host::ErrorCode code = Entry::Initialise();
        const bool wasReached = failAfter < 0;
        failAfter = -1;
        if (!wasReached) break;
        const Calls calls = registration.calls;
        const bool hasContext = GetContext() != nullptr;
        const host::ErrorCode answer = hasContext ? 0 : 1;
        EXPECT_EQ(registration.menuHandler({32500, 2}), answer) << n;
        EXPECT_EQ(registration.eventHandler(host::ProjectEvent::Open, 0), answer) << n;
        EXPECT_EQ(registration.reservationHandler({}, 0), 0) << n;
        if (code == host::NoError) {
            EXPECT_FALSE(hasContext) << n; // what failed was the object, and the rest was installed
            EXPECT_EQ(calls, complete) << n;
            ++withoutContext;
        } else {
            EXPECT_EQ(code, host::Errors::OutOfMemory) << n;
            ++cutShort;
        }
        EXPECT_EQ(Entry::FreeData(), host::NoError);
        EXPECT_EQ(Entry::Initialise(), host::NoError) << n; // with memory again all is as it should be
        EXPECT_NE(GetContext(), nullptr) << n;
        EXPECT_EQ(Entry::FreeData(), host::NoError);
    }
    EXPECT_GT(withoutContext, 0);
    EXPECT_GT(cutShort, 0);
}

/// Each callback with every of its allocations failing in turn: a code comes back and no exception, and the next call
/// works again.
TEST_F(EntryTest, NoCallbackLetsAnExceptionOut) {
    ASSERT_EQ(Entry::Initialise(), host::NoError);
    host::Environment environment;
    environment.applicationCode = host::ArchiCADApplicationCode;
    host::ObjectState settings;
    const std::string document = "<root/>";
    const auto raise = [&](host::ProjectEvent event) { return registration.eventHandler(event, 0); };
    const struct {
        const char* name;
        std::function<host::ErrorCode()> call;
        host::ErrorCode whole; ///< the answer when nothing fails
    } callbacks[] = {
        {"environment", [&] { return static_cast<int>(Entry::CheckEnvironment(environment)); }, 2},
        {"registration", [&] { return Entry::RegisterInterface(); }, 0},
        {"palette",
         [&] {
             return registration.menuHandler({32500, 1});
         },
         0},
        {"materials",
         [&] {
             return registration.menuHandler({32501, 1});
         },
         0},
        {"settings",
         [&] {
             return registration.menuHandler({32502, 1});
         },
         0},
        {"report",
         [&] {
             return registration.menuHandler({32504, 1});
         },
         0},
        {"new", [&] { return raise(host::ProjectEvent::New); }, 0},
        {"reset", [&] { return raise(host::ProjectEvent::NewAndReset); }, 0},
        {"open", [&] { return raise(host::ProjectEvent::Open); }, 0},
        {"window", [&] { return raise(host::ProjectEvent::WindowChanged); }, 0},
        {"start", [&] { return raise(host::ProjectEvent::AllInputFinished); }, 0},
        {"quit", [&] { return raise(host::ProjectEvent::Quit); }, 0},
        {"reservation", [&] { return registration.reservationHandler({}, 1); }, 0},
        {"GRSC", [&] { return registration.settingsHandler(settings, true); }, 0},
        {"SRDT", [&] { return registration.documentHandler(document, true); }, 0},
    };
    constexpr long MostAllocations = 10000;
    for (const auto& callback : callbacks) {
        EXPECT_EQ(callback.call(), callback.whole) << callback.name; // also makes what is made once
        long n = 0;
        for (bool isFailing = true; isFailing && n < MostAllocations; ++n) {
            settings = {};
            registration.calls.clear();
            failAfter = n;
            const host::ErrorCode code = callback.call();
            isFailing = failAfter < 0;
            failAfter = -1;
            const bool isDenied = code == host::Errors::OutOfMemory || code == 0; // 0 also says "do not register"
            EXPECT_TRUE(code == callback.whole || isDenied) << callback.name << " " << n << " " << code.GetValue();
        }
        EXPECT_LT(n, MostAllocations) << callback.name;
        EXPECT_EQ(callback.call(), callback.whole) << callback.name;
    }
    EXPECT_EQ(GetContext()->projectData.GetFloorValue(lca::FloorQuantity::GrossFloorArea), 100);
}

} // namespace
