// The entry without the module's exports, as a build links it that the host's own library loads: what a host may do
// that the workbench does not, and every allocation failing in turn.
#include "src/Entry.h"
#include "src/AddOnContext.h"
#include "src/Kelvarnix.h"

#include <gtest/gtest.h>

#include "FailingAllocation.h"
#include "support/NullHost.h"

#include <algorithm>
#include <functional>
#include <map>

namespace {

/// Opens dialogs without keeping them for the workbench's rules, and leaves to the add-on what is open when it frees
/// it.
class KeepingDialogs : public test::NullDialogs {
public:
    host::ErrorCode RegisterPalette(std::int16_t, const host::Guid&, host::PaletteRequestHandler) override {
        return ++palettes == 1 ? host::NoError : host::Errors::BadId;
    }
    host::ErrorCode UnregisterPalette(const host::Guid&) override {
        return --palettes == 0 ? host::NoError : host::Errors::BadId;
    }
    host::DialogId OpenPalette(const host::Guid&, host::DialogHandler& handler) override { return Open(handler); }
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
    void Send(host::DialogId id, host::DialogMessage message, std::int16_t item = 0) {
        handlers.at(id.value)->HandleDialogMessage(message, id, item, {});
    }

    int palettes = 0;
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

/// Writes down what the entry asks for; some of it fails.
class EntryTest : public testing::Test, public test::NullHost {
protected:
    void SetUp() override {
        dialogs = &keeping;
        Entry::SetHost(this);
    }
    void TearDown() override { EXPECT_EQ(Entry::FreeData(), host::NoError); }

    void KeepInMemory(bool keep) override { calls.push_back(keep ? "keep" : "drop"); }
    host::ErrorCode RegisterMenu(std::int16_t menu, std::int16_t prompt) override {
        return Note("menu " + std::to_string(menu) + " " + std::to_string(prompt));
    }
    host::ErrorCode RegisterSupportedCommand(std::uint32_t code, std::int32_t version) override {
        return Note("command " + std::to_string(code) + " " + std::to_string(version));
    }
    host::ErrorCode InstallMenuHandler(std::int16_t list, host::MenuHandler handler) override {
        menu = handler;
        earlyAnswer = handler({list, 2});
        return Note("handler " + std::to_string(list));
    }
    host::ErrorCode InstallSettingsCommandHandler(std::uint32_t, std::int32_t,
                                                  host::SettingsCommandHandler handler) override {
        askSettings = handler;
        return Note("settings");
    }
    host::ErrorCode InstallDocumentCommandHandler(std::uint32_t, std::int32_t,
                                                  host::DocumentCommandHandler handler) override {
        sendData = handler;
        return Note("data");
    }
    host::ErrorCode InstallProjectEventHandler(std::uint32_t, host::ProjectEventHandler handler) override {
        event = handler;
        return Note("events");
    }
    host::ErrorCode InstallReservationChangeHandler(host::ReservationChangeHandler handler,
                                                    const std::set<host::Guid>&) override {
        reservation = handler;
        return Note("reservations");
    }
    host::ErrorCode SetMenuItemText(std::int16_t, std::int32_t, const std::string&) override { return Note("text"); }

    void WriteReport(const std::string& line) override { calls.push_back(line); }

    host::ErrorCode Note(const std::string& call) {
        calls.push_back(call);
        return failures[call];
    }

    KeepingDialogs keeping;
    std::vector<std::string> calls;
    std::map<std::string, host::ErrorCode> failures; ///< by call
    host::ErrorCode earlyAnswer;                     ///< of the menu handler while it is installed
    host::MenuHandler menu = nullptr;
    host::ProjectEventHandler event = nullptr;
    host::ReservationChangeHandler reservation = nullptr;
    host::SettingsCommandHandler askSettings = nullptr;
    host::DocumentCommandHandler sendData = nullptr;
};

using Calls = std::vector<std::string>;

/// In the order of the menu, and whatever fails: 0x47525343 is GRSC, 0x53524454 SRDT.
TEST_F(EntryTest, RegistersAndInstallsWhateverFails) {
    failures = {{"menu 32504 32514", 0x10},
                {"command 1397900372 1", 0x04},
                {"handler 32500", 0x20},
                {"reservations", 0x20},
                {"events", 0x01},
                {"settings", 0x02},
                {"data", 0x08}};
    EXPECT_EQ(Entry::RegisterInterface(), 0x14);
    EXPECT_EQ(Entry::Initialise(), 0x0B); // of menus and reservations nothing is said
    EXPECT_EQ(earlyAnswer, 0) << "a handler must find the object";
    calls.erase(std::remove(calls.begin() + 8, calls.end(), "keep"), calls.end()); // at each callback
    EXPECT_EQ(calls, (Calls{"menu 32500 32510", "menu 32504 32514", "menu 32501 32511", "menu 32502 32512",
                            "menu 32503 32513", "command 1196577603 1", "command 1397900372 1", "keep", "handler 32500",
                            "installing a menu handler: ended with host error 0x00000020", "handler 32504",
                            "handler 32501", "handler 32502", "handler 32503", "reservations",
                            "watching reservations: ended with host error 0x00000020", "events", "settings", "data"}));
}

/// Whatever is open, by a command or from the palette, and however the add-on's object ends.
TEST_F(EntryTest, NothingThatIsOpenOutlivesTheObject) {
    constexpr std::int16_t MaterialReportButton = 17;
    for (const auto& end : {Entry::FreeData, Entry::Initialise})
        for (const int open : {0, 32501, 32502, 32504, int{MaterialReportButton}}) {
            ASSERT_EQ(Entry::Initialise(), host::NoError);
            EXPECT_EQ(menu({32500, 1}), 0);
            ASSERT_EQ(keeping.handlers.size(), 1U);
            const AddOnContext* former = GetContext().get();
            int ends = 0;
            keeping.whileModal = [&] {
                EXPECT_EQ(keeping.handlers.size(), 2U);
                EXPECT_EQ(end(), host::NoError);
                ++ends;
                EXPECT_TRUE(keeping.handlers.empty()) << open; // what else would get the host's next message?
                EXPECT_EQ(keeping.palettes, GetContext() == nullptr ? 0 : 1);
                EXPECT_NE(GetContext().get(), former); // which still stands until its last function is left
            };
            calls.clear();
            if (open == 0)
                EXPECT_EQ(end(), host::NoError);
            else if (open == MaterialReportButton)
                keeping.Send({keeping.handlers.begin()->first}, host::DialogMessage::Click, MaterialReportButton);
            else
                EXPECT_EQ(menu({static_cast<std::int16_t>(open), 1}), 0);
            EXPECT_EQ(ends, open == 0 ? 0 : 1);
            EXPECT_TRUE(keeping.handlers.empty()) << open;
            EXPECT_EQ(std::count(calls.begin(), calls.end(), "text"), 0); // the menu is not spoken to any more
            EXPECT_EQ(Entry::FreeData(), host::NoError);
            EXPECT_EQ(keeping.palettes, 0);
        }
}

/// Each callback with every of its allocations failing in turn: a code comes back and no exception, and the next call
/// works again. Where initialisation cannot make the object all else is installed, and the handlers do nothing.
TEST_F(EntryTest, NoCallbackLetsAnExceptionOut) {
    ASSERT_EQ(Entry::Initialise(), host::NoError);
    const std::size_t installed = calls.size();
    int withoutContext = 0;
    host::Environment environment;
    environment.applicationCode = host::ArchiCADApplicationCode;
    host::ObjectState settings;
    const std::string document = "<root/>";
    std::vector<std::pair<std::function<host::ErrorCode()>, host::ErrorCode>> callbacks = {
        {Entry::Initialise, 0},
        {[&] { return static_cast<int>(Entry::CheckEnvironment(environment)); }, 2},
        {Entry::RegisterInterface, 0},
        {[&] { return reservation({}, 1); }, 0},
        {[&] { return askSettings(settings, true); }, 0},
        {[&] { return sendData(document, true); }, host::Errors::BadValue}};
    constexpr std::int16_t Menus[] = {32500, 32501, 32502, 32504};
    for (const std::int16_t list : Menus)
        callbacks.emplace_back([=, this] { return menu({list, 1}); }, 0);
    for (const std::uint32_t code : {0x1U, 0x2U, 0x4U, 0x40U, 0x80000U, 0x400000U})
        callbacks.emplace_back([=, this] { return event(host::ProjectEvent(code), 0); }, 0);
    for (std::size_t i = 0; i < callbacks.size(); ++i) {
        const auto& [call, whole] = callbacks[i];
        EXPECT_EQ(call(), whole) << i; // also makes what is made once
        long n = 0;
        for (bool isFailing = true; isFailing; ++n) {
            settings = {};
            calls.clear();
            failAfter = n;
            const host::ErrorCode code = call();
            isFailing = std::exchange(failAfter, -1) < 0;
            const bool isDenied = code == host::Errors::OutOfMemory || code == 0; // 0 also says "do not register"
            EXPECT_TRUE(code == whole || isDenied) << i << " " << n << " " << code.GetValue();
            const bool hasContext = GetContext() != nullptr;
            withoutContext += !hasContext && code == host::NoError && calls.size() >= installed;
            EXPECT_TRUE(hasContext || code != host::NoError || calls.size() >= installed) << n;
            EXPECT_EQ(menu({32500, 2}), hasContext ? 0 : 1) << i << " " << n;
        }
        EXPECT_EQ(call(), whole) << i;
    }
    EXPECT_GT(withoutContext, 0);
}

} // namespace
