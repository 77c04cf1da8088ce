#include "RefApplication.h"

#include "IAppBase.h"
#include "ICircuitEnvironment.h"
#include "INetworkDataExplorer.h"
#include "RefProject.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <memory>
#include <optional>
#include <string>

using refhost::RefApplication;
using refhost::RefProject;

namespace
{
// Sets (or, given no value, unsets) an environment variable for its lifetime and puts the
// earlier state back afterwards.
class ScopedVariable
{
public:
    ScopedVariable(const char* name, std::optional<std::string> value) : mName(name)
    {
        if (const char* old = std::getenv(name))
        {
            mOld = old;
        }
        Apply(value);
    }
    ~ScopedVariable() { Apply(mOld); }
    ScopedVariable(const ScopedVariable&) = delete;
    ScopedVariable& operator=(const ScopedVariable&) = delete;

private:
    void Apply(const std::optional<std::string>& value)
    {
#if defined(_WIN32)
        _putenv_s(mName, value ? value->c_str() : "");
#else
        if (value)
        {
            setenv(mName, value->c_str(), 1);
        }
        else
        {
            unsetenv(mName);
        }
#endif
    }

    const char* mName;
    std::optional<std::string> mOld;
};

struct Directories
{
    AString sys;
    AString user;
    AString personal;
};

// Pre-filled outputs show that the queries replace the text rather than append to it.
Directories ReadDirectories(const IMerrowApplication& application)
{
    Directories read{AString(L"stale"), AString(L"stale"), AString(L"stale")};
    application.GetSysLibDirectory(read.sys);
    application.GetUserLibDirectory(read.user);
    application.GetPersonalLibDirectory(read.personal);
    return read;
}
} // namespace

TEST(RefApplication, RegistryAnswersWhatWasInstalledBefore)
{
    IMerrowApplication* const before = GetIMerrowApplication();
    {
        RefApplication first;
        RefApplication second;
        // Each set answers the one it replaced; the registry keeps nothing else.
        EXPECT_EQ(SetIMerrowApplication(&first), &second);
        EXPECT_EQ(SetIMerrowApplication(nullptr), &first);
        EXPECT_EQ(GetIMerrowApplication(), nullptr);
        EXPECT_EQ(SetIMerrowApplication(&second), nullptr);
        EXPECT_EQ(GetIMerrowApplication(), &second);
    }
    // Ending in reverse order each puts back what it replaced when it was made.
    EXPECT_EQ(GetIMerrowApplication(), before);
}

TEST(RefApplication, InstallsItselfForItsLifetime)
{
    IMerrowApplication* const before = GetIMerrowApplication();
    {
        RefApplication application;
        EXPECT_EQ(GetIMerrowApplication(), &application);
        {
            RefApplication nested;
            EXPECT_EQ(GetIMerrowApplication(), &nested);
        }
        EXPECT_EQ(GetIMerrowApplication(), &application);
    }
    EXPECT_EQ(GetIMerrowApplication(), before);
}

TEST(RefApplication, EndingOutOfOrderMendsTheChain)
{
    IMerrowApplication* const before = GetIMerrowApplication();
    auto first = std::make_unique<RefApplication>();
    auto second = std::make_unique<RefApplication>();
    auto third = std::make_unique<RefApplication>();

    // The middle one ends first: the current one stays, and its successor later restores
    // what the middle one replaced.
    second.reset();
    EXPECT_EQ(GetIMerrowApplication(), third.get());
    third.reset();
    EXPECT_EQ(GetIMerrowApplication(), first.get());

    // The oldest ends while a newer one is current.
    auto fourth = std::make_unique<RefApplication>();
    first.reset();
    EXPECT_EQ(GetIMerrowApplication(), fourth.get());
    fourth.reset();
    EXPECT_EQ(GetIMerrowApplication(), before);
}

TEST(RefApplication, DoesNotUninstallAnApplicationInstalledOverIt)
{
    RefApplication outer;
    {
        RefApplication inner;
        SetIMerrowApplication(&outer);
    }
    // `inner` was no longer current when it ended, so it left the registry alone.
    EXPECT_EQ(GetIMerrowApplication(), &outer);
}

TEST(RefApplication, LibraryDirectoriesDefaultToTheEnvironment)
{
    struct Case
    {
        const char* name;
        std::optional<std::string> sys;
        std::optional<std::string> user;
        std::optional<std::string> personal;
        Directories expected;
    };
    const Case cases[] = {
        {"all unset", std::nullopt, std::nullopt, std::nullopt, {}},
        {"all set",
         "/opt/lib",
         "/srv/user lib",
         "/home/me/lib",
         {AString(L"/opt/lib"), AString(L"/srv/user lib"), AString(L"/home/me/lib")}},
        {"only user",
         std::nullopt,
         "C:\\Users\\lib\\",
         std::nullopt,
         {AString(), AString(L"C:\\Users\\lib\\"), AString()}},
        {"set but empty", "", std::nullopt, "", {}},
        {"UTF-8 text",
         "/tmp/Biblioth\xC3\xA8que",
         std::nullopt,
         "/tmp/\xE6\x97\xA5",
         {AString(L"/tmp/Biblioth\u00E8que"), AString(), AString(L"/tmp/\u65E5")}},
    };
    for (const Case& c : cases)
    {
        SCOPED_TRACE(c.name);
        ScopedVariable sys(RefApplication::kSysLibVariable, c.sys);
        ScopedVariable user(RefApplication::kUserLibVariable, c.user);
        ScopedVariable personal(RefApplication::kPersonalLibVariable, c.personal);
        RefApplication application;
        const Directories read = ReadDirectories(application);
        EXPECT_EQ(read.sys, c.expected.sys);
        EXPECT_EQ(read.user, c.expected.user);
        EXPECT_EQ(read.personal, c.expected.personal);
    }
}

TEST(RefApplication, ReadsTheEnvironmentOnceAndSettersWin)
{
    ScopedVariable sys(RefApplication::kSysLibVariable, "/first");
    ScopedVariable user(RefApplication::kUserLibVariable, std::nullopt);
    ScopedVariable personal(RefApplication::kPersonalLibVariable, std::nullopt);
    RefApplication application;
    {
        ScopedVariable changed(RefApplication::kSysLibVariable, "/second");
        EXPECT_EQ(ReadDirectories(application).sys, L"/first");
    }
    application.SetUserLibDirectory(AString(L"D:\\user"));
    application.SetPersonalLibDirectory(AString(L"E:\\me"));
    application.SetSysLibDirectory(AString());
    const Directories read = ReadDirectories(application);
    EXPECT_EQ(read.sys, L"");
    EXPECT_EQ(read.user, L"D:\\user");
    EXPECT_EQ(read.personal, L"E:\\me");
}

TEST(RefApplication, CircuitEnvironmentIsServedByQueryOnly)
{
    RefApplication application;
    IMerrowApplication* const installed = GetIMerrowApplication();
    ASSERT_EQ(installed, &application);
    EXPECT_EQ(dynamic_cast<ICircuitEnvironment*>(installed), nullptr);
    ICircuitEnvironment* environment = InterfaceQuery<ICircuitEnvironment>(installed);
    ASSERT_NE(environment, nullptr);
    EXPECT_EQ(environment->GetCircuitEnvironment(), kEnvBrennaCircuit);

    for (CircuitEnvironment value : {kEnvParvane, kEnvHalvardCircuit, kEnvOrrin, kEnvReserved4,
                                     kEnvCalder, kEnvNone, kEnvBrennaCircuit})
    {
        SCOPED_TRACE(static_cast<int>(value));
        application.SetCircuitEnvironment(value);
        // The service answers the application's setting as it is now, not a copy.
        EXPECT_EQ(environment->GetCircuitEnvironment(), value);
        EXPECT_EQ(InterfaceQuery<ICircuitEnvironment>(installed), environment);
    }
}

TEST(RefApplication, AppBaseAndExplorerCanBeWithdrawn)
{
    RefApplication application;
    EXPECT_EQ(dynamic_cast<IAppBase*>(static_cast<IMerrowApplication*>(&application)), nullptr);
    IAppBase* appBase = InterfaceQuery<IAppBase>(&application);
    ASSERT_NE(appBase, nullptr);
    INetworkDataExplorer* explorer = appBase->GetNetworkDataExplorer();
    ASSERT_NE(explorer, nullptr);
    EXPECT_EQ(explorer->Query<INetworkDataExplorer>(), explorer);

    application.SetHasNetworkDataExplorer(false);
    EXPECT_EQ(appBase->GetNetworkDataExplorer(), nullptr);
    application.SetHasNetworkDataExplorer(true);
    EXPECT_EQ(appBase->GetNetworkDataExplorer(), explorer);

    application.SetHasAppBase(false);
    EXPECT_EQ(InterfaceQuery<IAppBase>(&application), nullptr);
    application.SetHasAppBase(true);
    EXPECT_EQ(InterfaceQuery<IAppBase>(&application), appBase);
}

TEST(RefApplication, OwnsAndFindsProjects)
{
    RefApplication application;
    RefProject& alpha = application.AddProject(AString(L"Alpha"), AString(L"C:\\Alpha"));
    RefProject& beta = application.AddProject(AString(L"Beta"), AString(L"D:\\Beta\\"));
    RefProject& again = application.AddProject(AString(L"ALPHA"), AString(L"E:\\Other"));
    EXPECT_EQ(application.GetProjectCount(), 3u);
    EXPECT_EQ(application.GetProject(0), &alpha);
    EXPECT_EQ(application.GetProject(2), &again);
    EXPECT_EQ(application.GetProject(3), nullptr);
    EXPECT_EQ(&alpha.GetApplication(), &application);
    EXPECT_EQ(beta.GetDirectory(), L"D:\\Beta\\");

    // Names compare ignoring case; the first match wins.
    EXPECT_EQ(application.FindProject(AString(L"alpha")), &alpha);
    EXPECT_EQ(application.FindProject(AString(L"bEtA")), &beta);
    EXPECT_EQ(application.FindProject(AString(L"Gamma")), nullptr);

    EXPECT_TRUE(application.CloseProject(&alpha));
    EXPECT_EQ(application.GetProjectCount(), 2u);
    EXPECT_EQ(application.FindProject(AString(L"alpha")), &again);
    EXPECT_EQ(application.GetProject(0), &beta);
}

TEST(RefApplication, RefusesToCloseProjectsItDoesNotOwn)
{
    RefApplication first;
    RefApplication second;
    RefProject& foreign = second.AddProject(AString(L"P"), AString(L"/p"));
    first.AddProject(AString(L"Q"), AString(L"/q"));
    EXPECT_FALSE(first.CloseProject(&foreign));
    EXPECT_FALSE(first.CloseProject(nullptr));
    EXPECT_EQ(first.GetProjectCount(), 1u);
    EXPECT_EQ(second.GetProjectCount(), 1u);
    EXPECT_EQ(foreign.GetName(), L"P");
    EXPECT_TRUE(second.CloseProject(&foreign));
    EXPECT_FALSE(second.CloseProject(&foreign));
}
