// Run by the build: ends with 1 if the program could never take an update for genuine.

#include <cstdlib>
#include <iostream>

#include "shell/Product.h"
#include "toolkit/Cryptography.h"

int main() {
  if (toolkit::IsUsablePublicKey(product::updatePublicKey)) return EXIT_SUCCESS;
  std::cerr << "CORVANE_UPDATE_PUBLIC_KEY is not an RSA public key of at least 2048 bits.\n";
  return EXIT_FAILURE;
}
