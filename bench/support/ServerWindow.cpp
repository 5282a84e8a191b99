#include "support/ServerWindow.h"

#include <string_view>

namespace bench {

std::shared_ptr<CorvaneServer> AddedServer() {
  auto server = std::make_shared<CorvaneServer>();
  server->Network_Hostname = "127.0.0.1";
  server->Username = PanelService::user;
  server->Password = PanelService::password;
  return server;
}

void AnswerOpening(Desktop& desktop, CurlConnection& curl, const PanelService& service) {
  for (const std::string_view path : {"/api/v1/system/information", "/api/v1/containers/list"}) {
    const std::string url = service.BaseURL() + std::string(path);
    desktop.Answer(std::string(path), std::make_shared<std::string>(curl.Post(url, RequestBody()).Body));
  }
}

ServerWindow::ServerWindow() : window_(std::make_shared<wServer>(AddedServer())) {
  window_->Show();
  window_->tabs.Select(2);
  Desktop::RunUntil([this] { return window_->list_containers.ListCount() > 1; });
  window_->list_containers.Select(1);
}

QAbstractItemView& ServerWindow::OpenLog(const std::string& count, int rows) {
  PaintWatch watch("list_logs");
  watch.ExpectRows(rows);
  window_->txt_containers_logs.Type(count);
  window_->btn_containers_logs.Press();
  watch.Wait();
  return *watch.Painted();
}

void CloseLastWindow() {
  const std::weak_ptr<toolkit::Window> window = toolkit::Platform::Current().OpenWindows().back();
  window.lock()->Close();
  Desktop::RunUntil([&] { return window.expired(); });
}

}  // namespace bench
