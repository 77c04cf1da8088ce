// The managers of one project of the reference host. The design manager owns the others and
// they lead to one another the way the host's do: the circuit manager is a companion that the
// design manager hands out by query only, the definition manager is also the circuit definition
// manager (found by cast), and the creation managers likewise serve both sides. The circuit
// manager also provides the button clients of the project's properties by number
// (IPropClientFactory); the design manager keeps them.
#pragma once

#include "ICircuitDefCreationMgr.h"
#include "ICircuitDefinitionMgr.h"
#include "ICircuitLibraryMgr.h"
#include "ICircuitMgr.h"
#include "IDefCreationMgr.h"
#include "IDefinitionMgr.h"
#include "IDesignMgr.h"
#include "IPropClientFactory.h"
#include "RefHostExport.h"

#include <cstddef>
#include <map>
#include <memory>

namespace refhost
{
class RefButtonPropClient;
class RefDefinitionMgr;
class RefDesignMgr;
class RefNatureMgr;
class RefProject;

class REFHOST_API RefDefCreationMgr final : public IDefCreationMgr, public ICircuitDefCreationMgr
{
public:
    // Answers IDefCreationMgr and ICircuitDefCreationMgr.
    void* QueryInterface(int id) override;
    IDefinitionMgr* GetDefinitionMgr() const override;
    ICircuitDefinitionMgr* GetCircuitDefinitionMgr() const override;

private:
    friend class RefDefinitionMgr;
    explicit RefDefCreationMgr(RefDefinitionMgr& definitionMgr) : mDefinitionMgr(definitionMgr) {}

    RefDefinitionMgr& mDefinitionMgr;
};

class REFHOST_API RefCircuitLibraryMgr final : public ICircuitLibraryMgr
{
public:
    // Answers ICircuitLibraryMgr.
    void* QueryInterface(int id) override;
    ICircuitDefinitionMgr* GetCircuitDefinitionMgr() const override;

private:
    friend class RefDefinitionMgr;
    explicit RefCircuitLibraryMgr(RefDefinitionMgr& definitionMgr) : mDefinitionMgr(definitionMgr)
    {
    }

    RefDefinitionMgr& mDefinitionMgr;
};

class REFHOST_API RefDefinitionMgr final : public IDefinitionMgr, public ICircuitDefinitionMgr
{
public:
    ~RefDefinitionMgr() override;
    RefDefinitionMgr(const RefDefinitionMgr&) = delete;
    RefDefinitionMgr& operator=(const RefDefinitionMgr&) = delete;

    // Answers IDefinitionMgr and ICircuitDefinitionMgr.
    void* QueryInterface(int id) override;
    IDesignMgr* GetDesignMgr() const override;
    IDefCreationMgr* GetDefCreationMgr() const override;
    ICircuitMgr* GetCircuitMgr() const override;
    IDefinitionMgr* GetDefinitionMgr() const override;
    ICircuitDefCreationMgr* GetCircuitDefCreationMgr() const override;
    ICircuitLibraryMgr* GetCircuitLibraryMgr() const override;

    RefDesignMgr& GetRefDesignMgr() const { return mDesignMgr; }
    RefDefCreationMgr& GetRefDefCreationMgr() const { return *mCreationMgr; }
    RefCircuitLibraryMgr& GetRefCircuitLibraryMgr() const { return *mLibraryMgr; }
    // Whether GetCircuitMgr answers the project's circuit manager (true by default), as for a
    // definition manager whose circuit side has lost its manager. The design manager's query
    // is not affected.
    void SetCircuitMgrLinked(bool linked) { mCircuitMgrLinked = linked; }
    bool IsCircuitMgrLinked() const { return mCircuitMgrLinked; }

private:
    friend class RefDesignMgr;
    explicit RefDefinitionMgr(RefDesignMgr& designMgr);

    RefDesignMgr& mDesignMgr;
    bool mCircuitMgrLinked = true;
    std::unique_ptr<RefDefCreationMgr> mCreationMgr;
    std::unique_ptr<RefCircuitLibraryMgr> mLibraryMgr;
};

class REFHOST_API RefCircuitMgr final : public ICircuitMgr, public IPropClientFactory
{
public:
    // Answers ICircuitMgr and IPropClientFactory.
    void* QueryInterface(int id) override;
    IDesignMgr* GetDesignMgr() const override;
    ICircuitDefinitionMgr* GetCircuitDefinitionMgr() const override;
    // The project's nature manager while the design manager offers it, else null.
    INatureMgr* GetNatureMgr() const override;
    // Posts to the framework's message manager and counts the message.
    bool PostUserMessage(const Message& message) const override;

    // The design manager's button client of that number, or null.
    IButtonPropClient* GetButtonPropClient(int clientID) const override;

    // The number of messages posted through this circuit manager.
    std::size_t GetPostedMessageCount() const { return mPostedMessageCount; }

private:
    friend class RefDesignMgr;
    explicit RefCircuitMgr(RefDesignMgr& designMgr) : mDesignMgr(designMgr) {}

    RefDesignMgr& mDesignMgr;
    mutable std::size_t mPostedMessageCount = 0;
};

class REFHOST_API RefDesignMgr final : public IDesignMgr
{
public:
    ~RefDesignMgr() override;
    RefDesignMgr(const RefDesignMgr&) = delete;
    RefDesignMgr& operator=(const RefDesignMgr&) = delete;

    // Answers IDesignMgr, and ICircuitMgr by query only (the circuit manager is a companion)
    // while it is offered.
    void* QueryInterface(int id) override;
    // The project, while it counts as open.
    IProject* GetProject() const override;
    // The project's directory as stored, while the project counts as open.
    bool GetProjectDirectory(AString& directory) const override;
    IDefinitionMgr* GetDefinitionMgr() const override;

    RefProject& GetRefProject() const { return mProject; }
    RefDefinitionMgr& GetRefDefinitionMgr() const { return *mDefinitionMgr; }
    RefCircuitMgr& GetRefCircuitMgr() const { return *mCircuitMgr; }
    // The nature manager, whether offered or not.
    RefNatureMgr& GetRefNatureMgr() const { return *mNatureMgr; }
    // Whether the nature manager is offered (true by default). While it is not, the circuit
    // manager and the components answer no nature manager; its natures are kept.
    void SetNatureMgrAvailable(bool available) { mNatureMgrAvailable = available; }
    bool IsNatureMgrAvailable() const { return mNatureMgrAvailable; }
    // Whether the query offers the circuit manager (true by default), as for a design manager
    // of a host without a circuit side. The circuit manager itself stays.
    void SetCircuitMgrAvailable(bool available) { mCircuitMgrAvailable = available; }
    bool IsCircuitMgrAvailable() const { return mCircuitMgrAvailable; }
    // Whether the project counts as open (true by default). While it does not, the design
    // manager answers no project and no project directory, as the host's does between
    // projects; the project and its designs are kept.
    void SetProjectOpen(bool open) { mProjectOpen = open; }
    bool IsProjectOpen() const { return mProjectOpen; }

    // Adds (or replaces) the button client numbered `clientID`, opening dialogs of
    // `dialogKind`; the design manager owns it.
    RefButtonPropClient& AddButtonPropClient(int clientID, int dialogKind);
    // The client of that number, or null.
    RefButtonPropClient* FindButtonPropClient(int clientID) const;

private:
    friend class RefProject;
    explicit RefDesignMgr(RefProject& project);

    RefProject& mProject;
    bool mNatureMgrAvailable = true;
    bool mCircuitMgrAvailable = true;
    bool mProjectOpen = true;
    std::unique_ptr<RefNatureMgr> mNatureMgr;
    std::unique_ptr<RefDefinitionMgr> mDefinitionMgr;
    std::unique_ptr<RefCircuitMgr> mCircuitMgr;
    std::map<int, std::unique_ptr<RefButtonPropClient>> mButtonClients;
};
} // namespace refhost
