#pragma once
// Loaded plug-ins and the record of their registration calls.
#include <mayasim/Object.h>

#include <memory>
#include <string>
#include <maya/MApiNamespace.h>

namespace mayasim::plugins {

// What the MObject handed to initializePlugin refers to.
class Plugin : public Object
{
public:
    std::string name;
    std::string path;
    std::string vendor = "Unknown";
    std::string version = "Unknown";
    std::string apiVersion = "Any";
    bool described = false; // vendor and version come from the first MFnPlugin

    MFn::Type apiType() const override { return MFn::kPlugin; }
    bool hasFn(MFn::Type type) const override { return type == MFn::kPlugin || type == MFn::kBase; }
};

// The plug-in an MObject refers to; null for anything else.
std::shared_ptr<Plugin> pluginOf(const MObject& object);
std::shared_ptr<Plugin> findLoaded(const std::string& name);

// Every MFnPlugin register*/deregister* call starts here. False when the host
// made this call fail (host::failRegistrationAt); the call then fails.
bool registrationAllowed();
// Logs a registration call for host::registrations().
void recordRegistration(const std::string& plugin, const std::string& call, const std::string& name,
                        bool succeeded);

} // namespace mayasim::plugins
