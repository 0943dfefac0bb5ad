// The port monitors' entries in the registry, by which the driver and the language monitor find the
// printer behind a port.
#pragma once

#include <platform/registry/state_store.h>

#include <string>

namespace kvcore {

// "IP_" and an address or a name is a TCP/IP port; "USB" and digits a USB port, whose device file
// `device` is, when it is known. Ports that say themselves where the printer is ("http://...",
// "\\server\...") have no entry. Within the caller's transaction.
DWORD RegisterPort(kv::StateStore& store, const std::string& port, const std::string& device);
// Of a USB port; empty when none is known.
std::string DeviceOfPort(kv::StateStore& store, const std::string& port);

}  // namespace kvcore
