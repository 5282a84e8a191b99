// The check for updates: deciding over a large document, digests of large files, versions, and packets with one changed
// byte.

#include <cstdio>
#include <cstdlib>
#include <exception>
#include <fstream>
#include <iostream>
#include <string>
#include <vector>

#include <boost/json/parse.hpp>

#include "shell/App.h"
#include "signing/SigningKey.h"
#include "support/ChildProcess.h"
#include "support/Measure.h"
#include "support/Memory.h"
#include "support/Report.h"
#include "tests/support/HandPlatform.h"
#include "tests/support/OfferRecorder.h"
#include "toolkit/Cryptography.h"
#include "toolkit/Text.h"
#include "update/check/FileHelpers.h"
#include "update/check/UpdateChecker.h"
#include "update/check/UpdatePacket.h"
#include "update/check/Versions.h"

namespace {

constexpr int rounds = 41;
constexpr int offersOfDocument = 10'000;
constexpr std::size_t gigabyte = 1'000'000'000;

std::string Document() {
  std::string document;
  for (int number = 0; number < offersOfDocument; ++number) {
    document += document.empty() ? "[" : ",";
    document += R"({"AppName":"Corvane","Version":"2.)" + std::to_string(number % 900) + "." +
                std::to_string(number % 7) + R"(b4","MinimumRequiredVersion":"1.0","ReleaseNotes":")" +
                std::string(120, 'n') +
                R"(","LinuxBinary64bit":{"URL":"http://h/corvane.zip","Hash":"d41d8cd98f00b204e9800998ecf8427e",)"
                R"("ExecutableName":"corvane"}})";
  }
  return document + "]";
}

void MeasureDecision(HandPlatform& platform, bench::Report& report) {
  const SigningKey publisher;
  const std::string document = Document();
  const std::string packet = publisher.Packet(document);
  const std::string signature = publisher.Sign(document);
  const std::string key = publisher.PublicKey();
  const auto presenter = std::make_shared<OfferRecorder>();
  const auto checker = std::make_shared<Kaju::UpdateChecker>(platform.ApplicationDataFolder(), "prefs", presenter);
  checker->ServerPublicRSAKey = key;
  checker->UpdateURL = "http://updates/";
  platform.WhileWaiting = [&] { platform.LastRequest().Reply(200, packet); };

  std::vector<double> ours;
  std::vector<double> floor;
  for (int round = 0; round < rounds; ++round) {
    platform.Requests.clear();
    presenter->Shown.clear();
    ours.push_back(bench::SecondsOf([&] { checker->Execute(); }));
    floor.push_back(bench::SecondsOf([&] {
      if (!toolkit::RSAVerifySignature(document, signature, key)) throw std::runtime_error("the floor is broken");
      if (boost::json::parse(document).as_array().size() != offersOfDocument) throw std::runtime_error("floor");
    }));
    if (presenter->Shown.size() != offersOfDocument) throw std::runtime_error("not every offer was shown");
  }
  report.Ratio("deciding over 10,000 offers", bench::Unit::Seconds, bench::Median(ours),
               {"parsing and verifying alone", bench::Median(floor)}, 1.5);
}

void MeasureHash(const HandPlatform& platform, bench::Report& report) {
  const toolkit::FolderItem file = platform.DesktopFolder().Child("large");
  std::ofstream stream(file.Path(), std::ios::binary);
  const std::string part(1'000'000, 'x');
  for (std::size_t written = 0; written < gigabyte; written += part.size()) stream << part;
  stream.close();
  const std::string command = "openssl md5 '" + file.Path().string() + "' >/dev/null";

  std::vector<double> ours;
  std::vector<double> floor;
  static_cast<void>(Kaju::HashOfFile(platform.DesktopFolder()));  // OpenSSL allocates memory for the first digest
  static_cast<void>(Kaju::HashOfFile(toolkit::Application::ExecutableFile()));
  const double before = bench::PeakMemory();
  for (int round = 0; round < 3; ++round) {
    ours.push_back(bench::SecondsOf([&] {
      if (Kaju::HashOfFile(file).size() != 32) throw std::runtime_error("no hash");
    }));
    floor.push_back(bench::SecondsOf([&] {
      if (std::system(command.c_str()) != 0) throw std::runtime_error("openssl md5 failed");
    }));
  }
  report.Ratio("hash of a file of 1 GB", bench::Unit::Seconds, bench::Median(ours),
               {"openssl md5", bench::Median(floor)}, 1 / 0.9);
  report.Value("memory held while hashing", bench::Unit::Bytes, bench::PeakMemory() - before, 1.5e6);
}

void MeasureVersions(bench::Report& report) {
  constexpr int calls = 200'000;
  double sum = Kaju::VersionToDouble("1.2.4b4");
  const double first = bench::SecondsOf([&] { sum += Kaju::VersionToDouble("1.2.4b5"); });
  const double all = bench::SecondsOf([&] {
    for (int call = 0; call < calls; ++call) sum += Kaju::VersionToDouble("1.2.4b4");
  });
  report.Note("one version as a number", bench::Readable(bench::Unit::Seconds, all / calls) + " (" +
                                             bench::Readable(bench::Unit::Seconds, first) + " for a single call, sum " +
                                             std::to_string(static_cast<long>(sum / calls)) + ")");
}

/// Counts the single-byte changes of a packet that are accepted as genuine. Digits of the signature in the other case,
/// and other line breaks, are valid and not counted.
void TryEveryByte(bench::Report& report) {
  const SigningKey publisher;
  const std::string key = publisher.PublicKey();
  std::string packet = publisher.Packet(R"([{"AppName":"Corvane","Version":"2","MacBinary":{"URL":"u","Hash":"h"}}])");
  const std::size_t lineEnd = packet.find('\n');
  int tried = 0;
  int taken = 0;
  for (std::size_t place = 0; place < packet.size(); ++place) {
    const char right = packet[place];
    for (int byte = 0; byte < 256; ++byte) {
      const char other = static_cast<char>(byte);
      const bool isSameDigit = place < lineEnd && place > 4 && toolkit::EqualIgnoringCase({&right, 1}, {&other, 1});
      const bool isSameBreak = place == lineEnd && (other == '\r' || other == '\v' || other == '\f');
      if (isSameDigit || isSameBreak || other == right) continue;
      packet[place] = other;
      ++tried;
      taken += VerifyPacket(Kaju::SeparatePacket(packet), key) == Kaju::PacketVerdict::Genuine ? 1 : 0;
    }
    packet[place] = right;
  }
  report.Value("changed packets taken for genuine, of " + std::to_string(tried), bench::Unit::Times, taken, 0);
}

int Measure() {
  HandPlatform platform;
  const App app({1, 0, 0});
  bench::Report report;
  MeasureHash(platform, report);  // first, while little memory has been used
  MeasureDecision(platform, report);
  MeasureVersions(report);
  TryEveryByte(report);
  return report.Status();
}

}  // namespace

int main() {
  try {
    return Measure();
  } catch (const std::exception& exception) {
    std::cerr << "bench-updates: " << exception.what() << '\n';
    return EXIT_FAILURE;
  }
}
