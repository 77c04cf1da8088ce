// RefApplication: the application object of the in-memory reference host. Creating one installs
// it as the process's application (SetIMerrowApplication); destroying it puts back the one that
// was installed before, so a test fixture can simply hold one. It owns the projects and, through
// them, every design object of the host. Expressions see the variables of its active design
// (and of that design's project), and instance references resolve on the active design's
// instances through its instance-parameter factory (RefVariables.h).
#pragma once

#include "CircuitEnvironment.h"
#include "IMerrowApplication.h"
#include "RefHostExport.h"

#include <cstddef>
#include <functional>
#include <memory>
#include <vector>

class IAppBase;
class ICircuitEnvironment;
class ValueBase;

namespace refhost
{
class RefCompInst;
class RefDesign;
class RefModelCompiler;
class RefProject;

class REFHOST_API RefApplication final : public IMerrowApplication
{
public:
    // The environment variables that give the library directories their defaults; a variable
    // that is not set gives an empty directory.
    static constexpr const char* kSysLibVariable = "QLN_SYSLIB";
    static constexpr const char* kUserLibVariable = "QLN_USERLIB";
    static constexpr const char* kPersonalLibVariable = "QLN_PERSONALLIB";

    // Reads the library directories from the environment, starts in kEnvBrennaCircuit and
    // installs itself as the process's application.
    RefApplication();
    // Destroys the projects, then puts back the application installed before this one. When
    // applications end out of order, the chain is mended so that nothing dangles.
    ~RefApplication() override;
    RefApplication(const RefApplication&) = delete;
    RefApplication& operator=(const RefApplication&) = delete;

    // Answers IMerrowApplication, and by query only: ICircuitEnvironment and (unless turned off)
    // IAppBase, both served by companion objects.
    void* QueryInterface(int id) override;
    void GetSysLibDirectory(AString& directory) const override;
    void GetUserLibDirectory(AString& directory) const override;
    void GetPersonalLibDirectory(AString& directory) const override;

    void SetSysLibDirectory(const AString& directory) { mSysLibDirectory = directory; }
    void SetUserLibDirectory(const AString& directory) { mUserLibDirectory = directory; }
    void SetPersonalLibDirectory(const AString& directory) { mPersonalLibDirectory = directory; }

    // The environment that the application's ICircuitEnvironment answers.
    CircuitEnvironment GetCircuitEnvironment() const { return mEnvironment; }
    void SetCircuitEnvironment(CircuitEnvironment environment) { mEnvironment = environment; }

    // Whether the query answers IAppBase (true by default), and whether that IAppBase offers a
    // network data explorer (true by default).
    void SetHasAppBase(bool has) { mHasAppBase = has; }
    void SetHasNetworkDataExplorer(bool has) { mHasNetworkDataExplorer = has; }
    bool HasNetworkDataExplorer() const { return mHasNetworkDataExplorer; }

    // The host's model compiler.
    RefModelCompiler& GetModelCompiler() const { return *mModelCompiler; }

    // Opens a new project; the application owns it.
    RefProject& AddProject(const AString& name, const AString& directory);
    // Closes `project`, destroying it and everything it owns; false (nothing happens) when it
    // is not a project of this application.
    bool CloseProject(const RefProject* project);
    std::size_t GetProjectCount() const { return mProjects.size(); }
    // The project at `index` in opening order; null past the end.
    RefProject* GetProject(std::size_t index) const;
    // The first project of that name, ignoring case; null when none.
    RefProject* FindProject(const AString& name) const;

    // The design whose variables expressions see (with its project's); null for none. A
    // design that ends stops being active.
    void SetActiveDesign(RefDesign* design) { mActiveDesign = design; }
    RefDesign* GetActiveDesign() const { return mActiveDesign; }

    // Makes the value object that stands for parameter `parameter` of `instance`, an instance
    // of the active design, for an instance reference ("R1.R"); owned by the caller, null when
    // it cannot. Until one is set, instance references resolve to nothing.
    using InstanceParameterFactory =
        std::function<ValueBase*(RefCompInst& instance, const AString& parameter)>;
    void SetInstanceParameterFactory(InstanceParameterFactory factory)
    {
        mInstanceParameterFactory = std::move(factory);
    }
    const InstanceParameterFactory& GetInstanceParameterFactory() const
    {
        return mInstanceParameterFactory;
    }

private:
    AString mSysLibDirectory;
    AString mUserLibDirectory;
    AString mPersonalLibDirectory;
    CircuitEnvironment mEnvironment = kEnvBrennaCircuit;
    bool mHasAppBase = true;
    bool mHasNetworkDataExplorer = true;
    std::unique_ptr<ICircuitEnvironment> mEnvironmentService;
    std::unique_ptr<IAppBase> mAppBase;
    std::unique_ptr<RefModelCompiler> mModelCompiler;
    std::vector<std::unique_ptr<RefProject>> mProjects;
    IMerrowApplication* mPrevious = nullptr;
    RefDesign* mActiveDesign = nullptr;
    InstanceParameterFactory mInstanceParameterFactory;
};
} // namespace refhost
