// The product's facts for tests. The environment may set address and key; the default address refuses connections.

#include <cstdlib>

#include "shell/Product.h"

namespace {

const char* Given(const char* name, const char* otherwise) {
  const char* value = std::getenv(name);
  return value == nullptr ? otherwise : value;
}

}  // namespace

// TEST_VERSION is three numbers with commas between them.
const toolkit::ReleaseNumbers product::version{TEST_VERSION};
const char* const product::copyright = "Copyright © The testers";
const char* const product::updateURL = Given("CORVANE_TEST_UPDATE_URL", "http://127.0.0.1:9/UpdateInformation.json");
const char* const product::updatePublicKey = Given("CORVANE_TEST_UPDATE_KEY", "");
