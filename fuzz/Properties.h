// What holds for every object, whatever bytes it came from. A property that does not hold ends the process.

#pragma once

#include "support/FakeSystem.h"

#include <functional>
#include <map>
#include <memory>
#include <string>

using Protocol::SMBIOS::SMBIOSProtocolImpl;
using TestImages::Bytes;

using Tree = std::map<std::string, _XNode>;
using ObjectOwner = std::unique_ptr<SMBIOSProtocolImpl>;

/// Ends the process with `property` where it does not hold.
void Require(bool holds, const char* property);

/// The object that `make` gives, null where it refuses the bytes. Nothing may be thrown but what the library
/// promises.
ObjectOwner TryMake(const std::function<ObjectOwner()>& make);

/// The object of the machine, which becomes FakeSystem::TheMachine; null where the bytes are refused. No lock
/// stays behind.
ObjectOwner TryMakeLive(const FakeSystem::Machine& machine);

/// The whole tree.
Tree Everything(SMBIOSProtocolImpl& object);

/// Tests that the machine, where its bytes are accepted, has this tree, but for what only a live object
/// reads: the SPD blocks. Gives whether they are.
bool CheckRoute(const FakeSystem::Machine& machine, const Tree& tree);

bool AreEqual(const Tree& left, const Tree& right);

/// A number of the input's own, by which it is spread over tests that would be too slow all together.
unsigned int ShareOf(const unsigned char* data, std::size_t size);

/// Tests what holds for `object`, whose whole tree is `tree`, and also, by its share, its subtrees or
/// its copies.
void CheckObject(SMBIOSProtocolImpl& object, const Tree& tree, unsigned int share);
