#include <gmock/gmock.h>

#include "toolkit/qt/DecoderProgram.h"

int main(int argc, char** argv) {
  if (const auto status = toolkit::qt::DecodeIfAsked(argc, argv)) return *status;
  testing::InitGoogleMock(&argc, argv);
  return RUN_ALL_TESTS();
}
