// The settings store and the registry calls.
#include "contract/contract_test.h"

#include <array>

namespace contract {

namespace {

using sys::currentUserRoot;
using sys::registryReadAccess;

constexpr std::int32_t success = 0;
constexpr std::int32_t notFound = 2;
constexpr std::int32_t invalidHandle = 6;
constexpr std::int32_t moreData = 234;

class Settings : public MachineTest {
protected:
    sys::SettingsStore& settings = system.settings();
};

class Registry : public MachineTest {
protected:
    Registry() {
        driver->setRegistryText(testKey, "Text", "hello");
        driver->setRegistryNumber(testKey, "Number", 0x12345678);
    }
    sys::RegistryKey opened() {
        sys::RegistryKey key = 0;
        EXPECT_EQ(platform.regOpenKeyEx(currentUserRoot, testKey, registryReadAccess, key), success);
        return key;
    }

    sys::Platform& platform = system.platform();
    std::uint32_t type = 0;
    static constexpr std::uint32_t bufferSize = 100;
    std::array<char, bufferSize> buffer{};
    std::uint32_t length = bufferSize;
};

} // namespace

TEST_F(Settings, Write_CanBeRead) {
    settings.write("TessellariumContract", "Settings", "Key", "a text");
    settings.write("TessellariumContract", "Settings", "Other", "");
    EXPECT_EQ(settings.read("TessellariumContract", "Settings", "Key"), "a text");
    EXPECT_EQ(settings.read("TessellariumContract", "Settings", "Other"), "");
    EXPECT_EQ(settings.read("tessellariumcontract", "SETTINGS", "kEY"), "a text");
    settings.write("TessellariumContract", "Settings", "Key", "b");
    EXPECT_EQ(settings.read("TessellariumContract", "Settings", "Key"), "b");
}

TEST_F(Settings, MissingKey_GivesNothing) {
    EXPECT_EQ(settings.read("TessellariumContract", "Settings", "Key"), std::nullopt);
    settings.write("TessellariumContract", "Settings", "Key", "a text");
    EXPECT_EQ(settings.read("TessellariumContract", "Settings", "Other"), std::nullopt);
    EXPECT_EQ(settings.read("TessellariumContract", "Section", "Key"), std::nullopt);
}

TEST_F(Settings, AllBytesButZero_ComeBack) {
    std::string bytes;
    for (int value = 1; value < 128; ++value) {
        bytes += static_cast<char>(value);
    }
    settings.write("TessellariumContract", "Settings", "Key", bytes);
    EXPECT_EQ(settings.read("TessellariumContract", "Settings", "Key"), bytes);
}

TEST_F(Registry, Text_ComesWithItsZero) {
    const sys::RegistryKey key = opened();
    EXPECT_EQ(platform.regQueryValueEx(key, "Text", type, buffer.data(), length), success);
    EXPECT_EQ(type, sys::registryText);
    EXPECT_EQ(length, 6U);
    EXPECT_EQ(std::string(buffer.data(), length), std::string("hello\0", 6));
    EXPECT_EQ(platform.regCloseKey(key), success);
}

TEST_F(Registry, Number_ComesAsFourBytesTheLowOneFirst) {
    const sys::RegistryKey key = opened();
    EXPECT_EQ(platform.regQueryValueEx(key, "nUMBER", type, buffer.data(), length), success);
    EXPECT_EQ(type, sys::registryNumber);
    EXPECT_EQ(length, 4U);
    EXPECT_EQ(std::string(buffer.data(), 4), "\x78\x56\x34\x12");
    platform.regCloseKey(key);
}

TEST_F(Registry, BufferTooSmall_TellsTheLengthAndGivesNothing) {
    const sys::RegistryKey key = opened();
    length = 5;
    EXPECT_EQ(platform.regQueryValueEx(key, "Text", type, buffer.data(), length), moreData);
    EXPECT_EQ(length, 6U);
    length = 0;
    EXPECT_EQ(platform.regQueryValueEx(key, "Text", type, nullptr, length), success);
    EXPECT_EQ(length, 6U);
    platform.regCloseKey(key);
}

TEST_F(Registry, MissingValue_IsNotFound) {
    const sys::RegistryKey key = opened();
    EXPECT_EQ(platform.regQueryValueEx(key, "None", type, buffer.data(), length), notFound);
    platform.regCloseKey(key);
}

TEST_F(Registry, MissingKey_IsNotFound) {
    sys::RegistryKey key = 0;
    EXPECT_EQ(platform.regOpenKeyEx(currentUserRoot, testKey + "\\None", registryReadAccess, key), notFound);
    EXPECT_EQ(key, 0U);
    EXPECT_EQ(platform.regQueryValueEx(key, "Text", type, buffer.data(), length), invalidHandle);
}

TEST_F(Registry, Keys_AreFoundInAnyCaseAndThroughTheirParents) {
    sys::RegistryKey key = 0;
    EXPECT_EQ(
        platform.regOpenKeyEx(currentUserRoot, "SOFTWARE\\tessellariumcontract", registryReadAccess, key),
        success);
    EXPECT_EQ(platform.regQueryValueEx(key, "Text", type, buffer.data(), length), success);
    platform.regCloseKey(key);
    driver->setRegistryText(testKey + "\\Deeper", "Text", "x");
    EXPECT_EQ(platform.regOpenKeyEx(currentUserRoot, testKey, registryReadAccess, key), success);
    platform.regCloseKey(key);
}

} // namespace contract
