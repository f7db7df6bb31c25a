// SPDX-License-Identifier: GPL-3.0-or-later
// The library's process: how it starts, what it refuses, and how it ends.
#include <fcntl.h>
#include <sys/wait.h>

#include <csignal>

#include "tests/drivers/host/told_library.h"

namespace hm16::test {
namespace {

using namespace std::chrono_literals;

TEST(HostedProcess, EndsWithTheLibraryAndUnloadsIt) {
    pid_t id = 0;
    {
        ToldLibrary told;
        told.load();
        id = told.library().processId();
        EXPECT_TRUE(lives(id));
        EXPECT_NE(id, ::getpid());
    }
    EXPECT_FALSE(lives(id));
}

TEST(HostedProcess, EndsWithAProgramThatIsKilled) {
    std::array<int, 2> pipe{};
    ASSERT_EQ(::pipe(pipe.data()), 0);
    const pid_t program = ::fork();
    if (program == 0) {
        ToldLibrary told;
        told.load();
        const pid_t id = told.loaded.library ? told.library().processId() : 0;
        static_cast<void>(!::write(pipe[1], &id, sizeof id));
        ::raise(SIGKILL);
    }
    pid_t host = 0;
    ASSERT_EQ(::read(pipe[0], &host, sizeof host), static_cast<ssize_t>(sizeof host));
    ::waitpid(program, nullptr, 0);
    ASSERT_GT(host, 0);
    EXPECT_TRUE(comes([&] { return !lives(host); }));
    ::close(pipe[0]);
    ::close(pipe[1]);
}

TEST(HostedProcess, EndsWithAProgramThatIsKilledWhileTheLibraryHangs) {
    std::array<int, 2> pipe{};
    ASSERT_EQ(::pipe(pipe.data()), 0);
    const pid_t program = ::fork();
    if (program == 0) {
        ToldLibrary told("hang HM_Parar");
        told.load();
        const pid_t id = told.loaded.library ? told.library().processId() : 0;
        static_cast<void>(!::write(pipe[1], &id, sizeof id));
        told.call().parar();
        ::raise(SIGKILL);
    }
    pid_t host = 0;
    ASSERT_EQ(::read(pipe[0], &host, sizeof host), static_cast<ssize_t>(sizeof host));
    ASSERT_GT(host, 0);
    ::kill(program, SIGKILL);
    ::waitpid(program, nullptr, 0);
    EXPECT_TRUE(comes([&] { return !lives(host); }));
    ::close(pipe[0]);
    ::close(pipe[1]);
}

TEST(HostedProcess, LeavesTheSignalsOfATerminalToTheProgram) {
    ToldLibrary told;
    told.load();
    for (const int signal : {SIGINT, SIGTERM, SIGHUP, SIGQUIT}) {
        ::kill(told.library().processId(), signal);
    }
    EXPECT_EQ(told.call().parar(), 16);
    EXPECT_TRUE(told.watch.troubles.empty());
}

TEST(HostedProcess, HasNothingOfTheProgramsOpenButItsOutputAndThePage) {
    ToldLibrary told;
    const TempFolder folder;
    std::ofstream open(folder.path() / "the_programs");
    told.load();
    std::set<int> descriptors;
    const auto its = "/proc/" + std::to_string(told.library().processId()) + "/fd";
    for (const auto& entry : std::filesystem::directory_iterator(its)) {
        descriptors.insert(std::stoi(entry.path().filename().string()));
    }
    EXPECT_THAT(descriptors, ElementsAre(0, 1, 2, 3));
    EXPECT_EQ(std::filesystem::read_symlink(its + "/0"), "/dev/null");
}

TEST(HostedProcess, CannotCutThePageShort) {
    const SharedPage page = SharedPage::make();
    ASSERT_TRUE(page);
    EXPECT_NE(::ftruncate(page.descriptor(), 0), 0);
    EXPECT_NE(::ftruncate(page.descriptor(), sizeof(CallPage) * 2), 0);
    EXPECT_EQ(page->magic, CallPage::kMagic);
}

TEST(HostedProcess, OpensAPageOfItsOwnBuildAlone) {
    const SharedPage page = SharedPage::make();
    EXPECT_TRUE(SharedPage::open(::dup(page.descriptor())));
    page->size += 1;
    EXPECT_FALSE(SharedPage::open(::dup(page.descriptor())));
    EXPECT_FALSE(SharedPage::open(::open("/dev/null", O_RDWR | O_CLOEXEC)));
}

TEST(HostedProcess, ACrashOfAConstructorIsARefusal) {
    ToldLibrary told("crash constructor");
    told.load();
    ASSERT_EQ(told.loaded.library, nullptr);
    EXPECT_FALSE(told.loaded.noHost);
    EXPECT_EQ(told.loaded.result.refusal, Refusal::Crashed);
    EXPECT_EQ(told.loaded.result.fault,
              (std::filesystem::current_path() / libraryName()).string() +
                  " cannot be loaded as a driver library: it crashed meanwhile (Segmentation "
                  "fault).");
}

TEST(HostedProcess, AConstructorThatDoesNotReturnIsARefusal) {
    ToldLibrary told("hang constructor");
    told.limits.load = 200ms;
    told.load();
    ASSERT_EQ(told.loaded.library, nullptr);
    EXPECT_EQ(told.loaded.result.refusal, Refusal::Hangs);
    EXPECT_THAT(told.loaded.result.fault, testing::EndsWith(": it does not come back."));
}

TEST(HostedProcess, TellsARefusalOfTheLoaderWithAllItsParts) {
    const TempFolder folder;
    HostedLoad load = HostedLibrary::load(HM16_HOST, folder.path());
    EXPECT_EQ(load.library, nullptr);
    EXPECT_FALSE(load.noHost);
    EXPECT_EQ(load.result.refusal, Refusal::NoFile);
    EXPECT_EQ(load.result.file, folder.path() / libraryName());
    EXPECT_EQ(load.result.fault,
              "There is no driver library " + (folder.path() / libraryName()).string() + ".");

    folder.write(libraryName(), "a letter");
    std::filesystem::permissions(folder.path() / libraryName(), std::filesystem::perms(0755));
    load = HostedLibrary::load(HM16_HOST, folder.path());
    EXPECT_EQ(load.result.refusal, Refusal::NoLibrary);
    EXPECT_NE(load.result.reason, "");

    std::filesystem::copy_file(HM16_LACKING, folder.path() / libraryName(),
                               std::filesystem::copy_options::overwrite_existing);
    std::filesystem::permissions(folder.path() / libraryName(), std::filesystem::perms(0755));
    load = HostedLibrary::load(HM16_HOST, folder.path());
    EXPECT_EQ(load.result.refusal, Refusal::LacksFunctions);
    EXPECT_EQ(load.result.missing.size(), 14u);

    std::filesystem::permissions(folder.path() / libraryName(), std::filesystem::perms(0775));
    load = HostedLibrary::load(HM16_HOST, folder.path());
    EXPECT_EQ(load.result.refusal, Refusal::BadFile);
    EXPECT_EQ(load.result.fileFault, FileFault::OthersMayWrite);
}

TEST(HostedProcess, AMissingHostIsNoFaultOfTheLibrary) {
    const TempFolder folder;
    const HostedLoad load = HostedLibrary::load(folder.path() / "hm16-host", folder.path());
    EXPECT_EQ(load.library, nullptr);
    EXPECT_TRUE(load.noHost);
}

TEST(HostedProcess, AHostOfAnotherBuildIsNoFaultOfTheLibrary) {
    const TempFolder folder;
    folder.write("hm16-host", "#!/bin/sh\nexit 2\n");
    std::filesystem::permissions(folder.path() / "hm16-host", std::filesystem::perms(0755));
    const HostedLoad load = HostedLibrary::load(folder.path() / "hm16-host", folder.path());
    EXPECT_EQ(load.library, nullptr);
    EXPECT_TRUE(load.noHost);
}

TEST(HostedProcess, StartedByHandSaysThatItIsNot) {
    EXPECT_EQ(WEXITSTATUS(std::system(HM16_HOST " 2>/dev/null")), 2);
    // Started by a process that is not the program.
    EXPECT_EQ(WEXITSTATUS(std::system(HM16_HOST " 3 1 2>/dev/null")), 1);
}

}  // namespace
}  // namespace hm16::test
