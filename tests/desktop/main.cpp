#include <QTemporaryDir>
#include <gmock/gmock.h>

#include "toolkit/qt/DecoderProgram.h"

int main(int argc, char** argv) {
  if (const auto status = toolkit::qt::DecodeIfAsked(argc, argv)) return *status;
  const QTemporaryDir home;  // so that no test reads or writes the user's own files
  for (const char* folder : {"HOME", "XDG_DATA_HOME", "XDG_CONFIG_HOME", "XDG_CACHE_HOME"})
    qputenv(folder, home.path().toUtf8());
  testing::InitGoogleMock(&argc, argv);
  return RUN_ALL_TESTS();
}
