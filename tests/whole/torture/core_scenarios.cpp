#include <cstdlib>

#include "core/state.h"
#include "whole/torture/scenario.h"

namespace orvel_test::torture {
namespace {

const std::string kNewRoot(60, 'r');

void tell_root(Host& host) {
    const std::string& root = orvel::state().custom_resource_path;
    host.tell(root.empty() ? "no root" : root == kNewRoot ? "new root" : "old root");
}

Scenarios lifecycle() {
    return {
        {"the library is started",
         [](Host& host) {
             host.call(orvel_init);
             host.tell_log();
         },
         "0, inizializzato (v0.1.0)",
         {{"fwrite short", "0, a cut line"}, {"fwrite", "0, silent"}}},
        {"the library is started twice",
         [](Host& host) {
             host.call(orvel_init);
             host.call(orvel_init);
             host.tell_log();
         },
         "0, 0, inizializzato (v0.1.0)",
         {{"fwrite short", "0, 0, a cut line"}, {"fwrite", "0, 0, silent"}}},
        {"the library is shut down",
         [](Host& host) {
             orvel_init();
             host.tell_log();
             host.call(orvel_shutdown);
             host.tell_log();
             host.call(orvel_shutdown);
             host.tell_log();
         },
         "inizializzato (v0.1.0), chiuso, silent",
         {{"fwrite short", "inizializzato (v0.1.0), a cut line, silent"},
          {"fwrite", "inizializzato (v0.1.0), silent, silent"}}},
        {"the version is asked for", [](Host& host) { host.call(orvel_version); }, "0.1.0", {}},
        {"the state is looked at",
         [](Host& host) {
             host.tell(host.call_for_reference(orvel::state).initialized ? "started" : "idle");
         },
         "idle",
         {}},
    };
}

Scenarios roots() {
    return {
        {"the root is set",
         [](Host& host) {
             host.call(orvel_set_resource_path, kNewRoot.c_str());
             tell_root(host);
             orvel_set_resource_path(kNewRoot.c_str());
             host.tell_unless_as_ever(orvel::state().custom_resource_path, "not set afterwards");
         },
         "0, new root",
         {{"new", "bad_alloc, old root"}}},
        {"the root is set to null",
         [](Host& host) {
             host.call(orvel_set_resource_path, nullptr);
             tell_root(host);
         },
         "-1, old root",
         {}},
        {"the root is unset",
         [](Host& host) {
             host.call(orvel_set_resource_path, "");
             tell_root(host);
         },
         "0, no root",
         {}},
        {"the host's root is asked for",
         [](Host& host) { host.call(orvel::resource_path); },
         "ROOT",
         {{"new", "bad_alloc"}}},
        {"the root comes from the environment",
         [](Host& host) {
             orvel_set_resource_path("");
             setenv("ORVELSDK_PATH", "/a/folder/with/a/long/name/", 1);
             host.call(orvel::resource_path);
             unsetenv("ORVELSDK_PATH");
         },
         "/a/folder/with/a/long/name/Resources",
         {{"new", "bad_alloc"}}},
        {"the root is the default",
         [](Host& host) {
             orvel_set_resource_path("");
             host.call(orvel::resource_path);
         },
         "./Resources",
         {}},
    };
}

Scenarios resources() {
    return {
        {"a resource with an extension is resolved",
         [](Host& host) { host.call(orvel::resolve_resource, "Sounds", "click.wav"); },
         "ROOT/Sounds/click.wav",
         {{"new", "bad_alloc"}}},
        {"a resource is found by its third extension",
         [](Host& host) {
             host.provide("Icons/leaf.bmp", "");
             host.call(orvel::resolve_resource, "Icons", "leaf");
         },
         "ROOT/Icons/leaf.bmp",
         {{"new", "bad_alloc"},
          {"open 1", "ROOT/Icons/leaf.bmp", "bad_alloc"},
          {"open 2", "ROOT/Icons/leaf.bmp", "bad_alloc"},
          {"open 3", "ROOT/Icons/leaf", "bad_alloc"}}},
        {"a resource that is missing is resolved",
         [](Host& host) { host.call(orvel::resolve_resource, "Icons", "nothing"); },
         "ROOT/Icons/nothing",
         {{"new", "bad_alloc"}, {"open", "ROOT/Icons/nothing", "bad_alloc"}}},
    };
}

}  // namespace

Scenarios core_scenarios() { return joined({lifecycle(), roots(), resources()}); }

}  // namespace orvel_test::torture
