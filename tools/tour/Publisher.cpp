#include "tour/Publisher.h"

#include <algorithm>
#include <chrono>
#include <fstream>
#include <iterator>
#include <random>
#include <stdexcept>

#include <QBuffer>
#include <QImage>
#include <QPainter>
#include <boost/json/serialize.hpp>
#include <httplib.h>

#include "shell/Product.h"
#include "signing/SigningKey.h"
#include "toolkit/Cryptography.h"
#include "toolkit/Picture.h"
#include "toolkit/Text.h"
#include "toolkit/TextFile.h"
#include "update/check/UpdateInformation.h"
#include "update/install/ZipShell.h"

namespace tour {
namespace {

using namespace std::chrono_literals;

constexpr QSize backgroundSize(800, 600);
constexpr QRect placeOfIcon(29, 440, 100, 100);
constexpr std::size_t programSize = 300'000;
// Slow enough that the download does not finish, frequent enough that it does not time out.
constexpr std::size_t crawlingPart = 100;
constexpr auto crawlingPause = 50ms;

constexpr const char* newerNotes = R"(<h2>A year of listening</h2>
<p><img src="$/icon" width="64" height="64"></p>
<p>This version answers what you asked for most often.</p>
<ul><li><b>Several servers at a glance.</b> Their windows open side by side, and each keeps its own size.</li>
<li><b>Logs that find what you look for.</b> Type a word, and the rows that have it are counted.</li>
<li>Lists of a million rows scroll as smoothly as short ones.</li></ul>
<h3>Put right</h3>
<p>A container that was removed is told by its name. Read <a href="$/manual">the manual</a> for the rest.</p>)";

constexpr const char* olderNotes = R"(<h2>Small repairs</h2>
<p>The list of containers keeps its order. <a href="$/manual">The manual</a> tells more.</p>)";

void Require(bool isGood, const char* what) {
  if (!isGood) throw std::runtime_error(std::string("the publisher cannot ").append(what));
}

/// An archive of a program that nobody could start.
std::string PackProgram(const toolkit::FolderItem& folder) {
  const toolkit::FolderItem program = folder.Child("corvane");
  program.CreateAsFolder();
  std::minstd_rand random;
  std::ofstream file(program.Child("corvane").Path(), std::ios::binary);
  std::generate_n(std::ostreambuf_iterator<char>(file), programSize, [&] { return static_cast<char>(random() >> 8U); });
  file.close();
  Kaju::ZipShell shell;
  shell.Compress(program, std::nullopt);
  Require(file.good() && shell.ErrorCode() == 0, "pack an archive");
  return toolkit::ReadFile(folder.Child("corvane.zip"));
}

std::string VersionAfter(int releases) {
  return std::to_string(product::version.Major) + "." + std::to_string(product::version.Minor + releases) + ".0";
}

void Serve(httplib::Server& server, const std::string& path, const std::string& bytes, const std::string& kind) {
  server.Get(path, [=](const httplib::Request&, httplib::Response& response) { response.set_content(bytes, kind); });
}

std::string Icon() {
  const auto picture = toolkit::OpenPictureResource("corvane");
  const auto bytes = picture->Encoded();
  return {reinterpret_cast<const char*>(bytes.data()), bytes.size()};
}

/// A picture to stand behind the controls of a window, with the icon where they leave room.
std::string Background() {
  QImage picture(backgroundSize, QImage::Format_RGB32);
  QLinearGradient sky(0, 0, 0, picture.height());
  sky.setColorAt(0, QColor(0x7f, 0xb2, 0xc4));
  sky.setColorAt(1, QColor(0xf2, 0xdc, 0xb3));
  QPainter painter(&picture);
  painter.setRenderHint(QPainter::SmoothPixmapTransform);
  painter.fillRect(picture.rect(), sky);
  painter.drawImage(placeOfIcon, QImage::fromData(QByteArray::fromStdString(Icon())));
  painter.end();
  QByteArray bytes;
  QBuffer buffer(&bytes);
  Require(buffer.open(QIODevice::WriteOnly) && picture.save(&buffer, "PNG"), "paint a picture");
  return bytes.toStdString();
}

}  // namespace

Publisher::Publisher(const toolkit::FolderItem& folder)
    : server_(std::make_unique<httplib::Server>()), archive_(PackProgram(folder)) {
  server_->set_tcp_nodelay(true);
  server_->set_keep_alive_max_count(1);  // a kept connection would delay the end of the server
  const int port = server_->bind_to_any_port("127.0.0.1");
  Require(port > 0, "have a port");
  url_ = "http://127.0.0.1:" + std::to_string(port);
  const SigningKey key;
  publicKey_ = key.PublicKey();
  Serve(*server_, "/updates", key.Packet(Document()), "application/json");
  Serve(*server_, "/notes", toolkit::ReplaceAll(newerNotes, "$", url_), "text/html");
  Serve(*server_, "/icon", Icon(), "image/png");
  Serve(*server_, "/background", Background(), "image/png");
  ServeArchive();
  thread_ = std::thread([this] { server_->listen_after_bind(); });
  while (!server_->is_running()) std::this_thread::yield();  // stop() has no effect before
}

Publisher::~Publisher() {
  server_->stop();
  thread_.join();
}

void Publisher::ServeArchive() {
  server_->Get("/corvane.zip", [this](const httplib::Request& /*request*/, httplib::Response& response) {
    isHurried_ = false;
    response.set_content_provider(archive_.size(), "application/zip",
                                  [this](std::size_t offset, std::size_t length, httplib::DataSink& sink) {
                                    const std::size_t middle = archive_.size() / 2;
                                    if (offset < middle) return sink.write(archive_.data(), middle);
                                    if (isHurried_) return sink.write(archive_.data() + offset, length);
                                    std::this_thread::sleep_for(crawlingPause);
                                    return sink.write(archive_.data() + offset, std::min(length, crawlingPart));
                                  });
  });
}

std::string Publisher::NewerVersion() { return VersionAfter(2); }
std::string Publisher::OlderVersion() { return VersionAfter(1); }

std::string Publisher::Document() const {
  toolkit::Digest digest(toolkit::Digest::Kind::MD5);
  digest.Process(archive_);
  Kaju::UpdateInformation update;
  const auto file = update.FetchBinary(sizeof(void*) == 8 ? "LinuxBinary64bit" : "LinuxBinary");
  file->URL = url_ + "/corvane.zip";
  file->ExecutableName = "corvane";
  file->Hash = toolkit::EncodeHex(digest.Value());
  update.AppName = "Corvane";
  update.ImageURL = url_ + "/background";
  update.Version = NewerVersion();
  update.ReleaseNotes = url_ + "/notes\n";
  boost::json::array document{update.ConvertToJSON()};
  update.Version = OlderVersion();
  update.ReleaseNotes = toolkit::ReplaceAll(olderNotes, "$", url_);
  std::ranges::reverse(file->Hash);
  document.push_back(update.ConvertToJSON());
  return boost::json::serialize(document);
}

}  // namespace tour
