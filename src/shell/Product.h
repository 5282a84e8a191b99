#pragma once

#include "toolkit/Application.h"
#include "toolkit/ProgramFacts.h"

/// What the product says of itself, as it was configured. A program links the facts that it is to have.
namespace product {

inline const toolkit::ProgramFacts program{.Name = "Corvane", .Id = "corvane"};
extern const toolkit::ReleaseNumbers version;
extern const char* const copyright;
extern const char* const updateURL;
/// The key that update documents are signed with, in the form of toolkit::RSAVerifySignature().
extern const char* const updatePublicKey;

}  // namespace product
