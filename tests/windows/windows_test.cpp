// The program on Windows: names, other programs that have files open, ends from outside, positions beyond 4 GiB. The
// program is morvex.exe in the folder that MORVEX_TEST_FOLDER names.
#ifndef NOMINMAX
#define NOMINMAX
#endif
#define WIN32_LEAN_AND_MEAN
#include <gtest/gtest.h>
#include <io.h>
#include <windows.h>
#include <winioctl.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <stdexcept>
#include <string>
#include <string_view>

#include "driver/output_file.h"
#include "driver/system.h"
#include "reader/text_source.h"
#include "support/convert.h"

namespace fs = std::filesystem;

namespace
{
constexpr std::string_view deck = "*KEYWORD\r\n"
                                  "*NODE\r\n"
                                  "       1             0.0             0.0             0.1       0       0\r\n"
                                  "*END\r\n";
constexpr std::string_view node_row =
    "       1  0.0000000000000e+00  0.0000000000000e+00  1.0000000149012e-01     0     0\n";

std::string settings(std::string_view name)
{
    return " sourcefile : " + std::string(name) + "\r\n cardflag : 1\r\n geomflag : 1\r\n setflag : 1\r\n";
}

HANDLE file_for_child(const fs::path& file, DWORD access, DWORD how)
{
    SECURITY_ATTRIBUTES inherited{sizeof inherited, nullptr, TRUE};
    return CreateFileW(file.c_str(), access, FILE_SHARE_READ | FILE_SHARE_WRITE, &inherited, how, 0, nullptr);
}

struct Outcome {
    DWORD status = 0;
    std::string out, err;
};

// Runs the program in the folder, with "yes" typed.
Outcome run(const fs::path& folder)
{
    const TemporaryName streams;
    write_file(streams.path() / "in", "yes\r\n");
    STARTUPINFOW start{};
    start.cb = sizeof start;
    start.dwFlags = STARTF_USESTDHANDLES;
    start.hStdInput = file_for_child(streams.path() / "in", GENERIC_READ, OPEN_EXISTING);
    start.hStdOutput = file_for_child(streams.path() / "out", GENERIC_WRITE, CREATE_ALWAYS);
    start.hStdError = file_for_child(streams.path() / "err", GENERIC_WRITE, CREATE_ALWAYS);
    const char* const place = std::getenv("MORVEX_TEST_FOLDER");
    if (place == nullptr) throw std::runtime_error("MORVEX_TEST_FOLDER names no folder");
    const std::wstring program = (fs::path(place) / "morvex.exe").make_preferred().native();
    std::wstring line = L"morvex";
    PROCESS_INFORMATION process{};
    if (CreateProcessW(program.c_str(), line.data(), nullptr, nullptr, TRUE, 0, nullptr, folder.c_str(), &start,
                       &process) == 0)
        throw std::runtime_error("the program cannot be started");
    Outcome outcome;
    WaitForSingleObject(process.hProcess, INFINITE);
    GetExitCodeProcess(process.hProcess, &outcome.status);
    for (const HANDLE handle : {process.hProcess, process.hThread, start.hStdInput, start.hStdOutput, start.hStdError})
        CloseHandle(handle);
    outcome.out = contents(streams.path() / "out");
    outcome.err = contents(streams.path() / "err");
    return outcome;
}

std::size_t files_in(const fs::path& folder)
{
    return static_cast<std::size_t>(std::distance(fs::directory_iterator(folder), fs::directory_iterator()));
}

class Windows : public testing::Test
{
protected:
    void given(const std::wstring& name, std::string_view in_control_file)
    {
        write_file(folder() / name, deck);
        write_file(folder() / "input.morvex", settings(in_control_file));
    }
    [[nodiscard]] const fs::path& folder() const { return folder_.path(); }

private:
    TemporaryName folder_;
};
}  // namespace

TEST_F(Windows, LinesOfFilesAndOfTheTerminalEndWithoutACarriageReturn)
{
    given(L"model.k", "model.k");
    const Outcome outcome = run(folder());
    EXPECT_EQ(outcome.status, 0U) << outcome.err;
    EXPECT_EQ(outcome.out.find('\r'), std::string::npos);
    EXPECT_NE(contents(folder() / "model.geom").find(node_row), std::string::npos);
    for (const char* name : {"model.card", "model.geom", "model.sets"})
        EXPECT_EQ(contents(folder() / name).find('\r'), std::string::npos) << name;
    EXPECT_EQ(files_in(folder()), 7U) << "nothing but the deck, the control file and the outputs";
}

TEST_F(Windows, ADecksNameIsUtf8)
{
    given(L"мост-橋-é.k", "\xD0\xBC\xD0\xBE\xD1\x81\xD1\x82-\xE6\xA9\x8B-\xC3\xA9.k");
    const Outcome outcome = run(folder());
    EXPECT_EQ(outcome.status, 0U) << outcome.err;
    EXPECT_TRUE(fs::exists(folder() / L"мост-橋-é.geom"));
    EXPECT_NE(contents(folder() / L"мост-橋-é.card")
                  .find("#Include: \"\xD0\xBC\xD0\xBE\xD1\x81\xD1\x82-\xE6\xA9\x8B-\xC3\xA9.geom\"\n"),
              std::string::npos);
    EXPECT_NE(outcome.out.find("\xD0\xBC\xD0\xBE\xD1\x81\xD1\x82-\xE6\xA9\x8B-\xC3\xA9.card"), std::string::npos);
}

TEST_F(Windows, ANameThatIsNoUtf8IsOfTheSystemsCodePage)
{
    const char of_code_page[] = "mod\xE8le.k";
    wchar_t name[20]{};
    ASSERT_GT(MultiByteToWideChar(CP_ACP, 0, of_code_page, -1, name, 20), 0);
    given(name, of_code_page);
    const Outcome outcome = run(folder());
    EXPECT_EQ(outcome.status, 0U) << outcome.err;
    EXPECT_TRUE(fs::exists((folder() / name).replace_extension(L"geom")));
}

TEST_F(Windows, ADeckThatIsAnOutputInOtherCapitalsIsNotWrittenOver)
{
    given(L"Debug.Morvex", "DEBUG.MORVEX");
    const Outcome outcome = run(folder());
    EXPECT_EQ(outcome.status, 2U);
    EXPECT_NE(outcome.err.find("the run would write over its own input DEBUG.MORVEX"), std::string::npos)
        << outcome.err;
    EXPECT_EQ(contents(folder() / "Debug.Morvex"), deck);
    EXPECT_EQ(files_in(folder()), 2U);
}

TEST_F(Windows, NamesMayBeLong)
{
    const std::wstring part(100, L'f');
    const fs::path deep = L"\\\\?\\" + (folder() / part / part / part).make_preferred().native();
    for (const fs::path& each : {deep.parent_path().parent_path(), deep.parent_path(), deep})
        ASSERT_NE(CreateDirectoryW(each.c_str(), nullptr), 0) << GetLastError();
    const fs::path plain = folder() / part / part / part;
    OutputFile output;
    ASSERT_TRUE(output.create((plain / "model.geom").string().c_str())) << output.failure();
    ASSERT_GE(std::fputs("text\n", output.file()), 0);
    ASSERT_TRUE(output.put_in_place()) << output.failure();
    EXPECT_EQ(state_of(plain / "model.geom").size, 5U);
    std::FILE* const file = open_to_read(plain / "model.geom");
    ASSERT_NE(file, nullptr);
    std::fclose(file);
    remove_file((plain / "model.geom").c_str());
    EXPECT_EQ(state_of(plain / "model.geom").error, ENOENT);
    for (const fs::path& each : {deep, deep.parent_path(), deep.parent_path().parent_path()})
        EXPECT_NE(RemoveDirectoryW(each.c_str()), 0);
}

TEST_F(Windows, NamesAreTakenToTheLetter)
{
    for (const char* name : {"dot.", "blank ", "aux.k", "NUL.k", "a/../b.k", "./c.k"}) {
        if (std::string_view(name).starts_with("a/")) fs::create_directory(folder() / "a");
        OutputFile output;
        const fs::path path = folder() / name;
        ASSERT_TRUE(output.create(path.string().c_str())) << name << ": " << output.failure();
        ASSERT_TRUE(output.put_in_place()) << name << ": " << output.failure();
        EXPECT_EQ(state_of(path).kind, FileState::Kind::regular) << name;
        remove_file(path.c_str());
    }
    EXPECT_EQ(state_of(folder()).kind, FileState::Kind::folder);
    EXPECT_EQ(state_of(folder().root_path()).kind, FileState::Kind::folder);
}

TEST_F(Windows, AFileThatAnotherProgramKeepsToItselfIsToldAndStays)
{
    given(L"model.k", "model.k");
    write_file(folder() / "model.geom", "old\n");
    const HANDLE kept = CreateFileW((folder() / "model.geom").c_str(), GENERIC_READ, FILE_SHARE_READ, nullptr,
                                    OPEN_EXISTING, 0, nullptr);
    ASSERT_NE(kept, INVALID_HANDLE_VALUE);
    const Outcome outcome = run(folder());
    CloseHandle(kept);
    EXPECT_EQ(outcome.status, 2U);
    EXPECT_EQ(outcome.err, "morvex: model.geom: Permission denied\n");
    EXPECT_EQ(contents(folder() / "model.geom"), "old\n");
    EXPECT_TRUE(fs::exists(folder() / "model.card"));
    EXPECT_EQ(files_in(folder()), 7U) << "deck, control file, four whole outputs and the old one";
}

TEST_F(Windows, WhatAKilledRunHasLeftIsRemovedAndWhatALivingRunHasIsNot)
{
    given(L"model.k", "model.k");
    write_file(folder() / ".morvex-123-1", "left");
    std::FILE* const living = create_locked(folder() / ".morvex-124-1");
    ASSERT_NE(living, nullptr);
    EXPECT_EQ(run(folder()).status, 0U);
    EXPECT_FALSE(fs::exists(folder() / ".morvex-123-1"));
    EXPECT_TRUE(fs::exists(folder() / ".morvex-124-1"));
    FileLock lock;
    lock.keep(living);
    std::fclose(living);
    remove_abandoned(folder() / ".morvex-124-1");
    EXPECT_TRUE(fs::exists(folder() / ".morvex-124-1")) << "closed, but its run lives";
    lock.release();
    remove_abandoned(folder() / ".morvex-124-1");
    EXPECT_FALSE(fs::exists(folder() / ".morvex-124-1"));
}

TEST_F(Windows, OneRunAtATimePutsFilesInPlace)
{
    {
        const FolderLock lock(folder());
        EXPECT_TRUE(fs::exists(folder() / ".morvex-lock"));
        const ULONGLONG began = GetTickCount64();
        const FolderLock other(folder());
        EXPECT_GT(GetTickCount64() - began, 500U) << "it waits for the first";
    }
    EXPECT_EQ(files_in(folder()), 0U);
}

TEST_F(Windows, AChangeOfTheDeckShowsInItsState)
{
    write_file(folder() / "model.k", deck);
    const FileState before = state_of(folder() / "model.k");
    EXPECT_EQ(state_of(folder() / "MODEL.K"), before);
    std::ofstream(folder() / "model.k", std::ios::app) << "more";
    EXPECT_NE(state_of(folder() / "model.k"), before);
    EXPECT_TRUE(state_of(folder() / "model.k").same_file(before));
    ASSERT_NE(CreateHardLinkW((folder() / "link.k").c_str(), (folder() / "model.k").c_str(), nullptr), 0);
    EXPECT_TRUE(state_of(folder() / "link.k").same_file(before));
}

TEST_F(Windows, ReadsBeyondFourGigabytes)
{
    const fs::path file = folder() / "large.k";
    constexpr std::uint64_t hole = 4'500'000'000;
    std::FILE* const stream = open_file(file, "w+b");
    ASSERT_NE(stream, nullptr);
    DWORD ignored = 0;
    ASSERT_EQ(_fseeki64(stream, static_cast<std::int64_t>(hole), SEEK_SET), 0);
    DeviceIoControl(reinterpret_cast<HANDLE>(_get_osfhandle(_fileno(stream))), FSCTL_SET_SPARSE, nullptr, 0, nullptr, 0,
                    &ignored, nullptr);
    ASSERT_GE(std::fputs("\n*NODE\nlast", stream), 0);
    std::fflush(stream);
    TextSource source;
    ASSERT_TRUE(source.use(stream));
    EXPECT_EQ(source.size(), hole + 11);
    EXPECT_TRUE(source.newline_missing());
    char text[6]{};
    int failure = 0;
    EXPECT_EQ(source.read(text, hole + 1, 5, failure), 5U);
    EXPECT_STREQ(text, "*NODE");
    EXPECT_EQ(state_of(file).size, hole + 11);
    source.close();
    std::fclose(stream);
}
