// Run by the build: fails if the program could never accept an update as genuine.

#include <cstdlib>
#include <iostream>

#include "shell/Product.h"
#include "toolkit/Cryptography.h"

int main() {
  if (toolkit::IsUsablePublicKey(product::updatePublicKey)) return EXIT_SUCCESS;
  std::cerr << "CORVANE_UPDATE_PUBLIC_KEY is not an RSA public key of at least 2048 bits.\n";
  return EXIT_FAILURE;
}
