// A stream over a descriptor that does not block: sockets and terminals differ in how bytes are put only.
#pragma once

#include "os/byte_stream.h"
#include "os/posix/descriptor.h"

namespace telvar::os {

// As ::write; a socket must not raise a signal.
using PutBytes = long (*)(int descriptor, const void* bytes, std::size_t count);

[[nodiscard]] std::unique_ptr<ByteStream> streamOver(Descriptor descriptor, PutBytes put, const Interrupt& interrupt);

}  // namespace telvar::os
