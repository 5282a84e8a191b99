#pragma once

#include "toolkit/Application.h"
#include "toolkit/ProgramFacts.h"

/// The facts of the product that CMake configures. Each program links the ones it needs.
namespace product {

inline const toolkit::ProgramFacts program{.Name = "Corvane", .Id = "corvane"};
extern const toolkit::ReleaseNumbers version;
extern const char* const copyright;
extern const char* const updateURL;
/// The key of the signature of update documents, in the form of toolkit::RSAVerifySignature().
extern const char* const updatePublicKey;

}  // namespace product
