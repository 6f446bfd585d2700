// The Quilta demo: the shipped order book in a Qt window.
//
//   quilta_demo [--rows N] [--screenshot FILE.png] [--db FILE] [--fresh] [--tree]
//
// --rows N        generate N orders (1000000 or 1M) from the shipped ones instead of loading them
// --screenshot F  render the window offscreen once its layout has settled, write F and exit
// --db FILE       the SQLite database (made from the shipped CSV when missing)
// --fresh         ignore the saved column layout and sort (the screenshot never saves one)
// --tree          start on the tree of customers
#include <QApplication>
#include <QDir>
#include <QFileInfo>
#include <QTimer>
#include <cstdio>
#include <cstdlib>
#include <quilta/error.hpp>
#include <string>

#include "main_window.hpp"

namespace {

int32_t ParseCount(std::string s) {
  int32_t scale = 1;
  if (!s.empty() && (s.back() == 'M' || s.back() == 'm')) scale = 1000000;
  if (!s.empty() && (s.back() == 'k' || s.back() == 'K')) scale = 1000;
  if (scale != 1) s.pop_back();
  const long n = std::strtol(s.c_str(), nullptr, 10) * scale;
  return n > 0 && n <= 50000000 ? static_cast<int32_t>(n) : -1;
}

int Usage() {
  std::fprintf(stderr,
               "usage: quilta_demo [--rows N] [--screenshot FILE.png] [--db FILE] [--fresh] "
               "[--tree]\n");
  return 2;
}

}  // namespace

int main(int argc, char** argv) {
  demo::DemoOptions options;
  options.csv = QUILTA_DEMO_CSV;
  std::string screenshot;
  for (int i = 1; i < argc; ++i) {
    const std::string a = argv[i];
    const bool hasValue = i + 1 < argc;
    if (a == "--rows" && hasValue) {
      options.rows = ParseCount(argv[++i]);
      if (options.rows < 0) return Usage();
    } else if (a == "--screenshot" && hasValue) {
      screenshot = argv[++i];
    } else if (a == "--db" && hasValue) {
      options.database = argv[++i];
    } else if (a == "--fresh") {
      options.useSavedLayout = false;
    } else if (a == "--tree") {
      options.treeTab = true;
    } else {
      return Usage();
    }
  }
  // Without a display a screenshot is still possible: Qt then renders offscreen.
  if (!screenshot.empty() && qEnvironmentVariableIsEmpty("DISPLAY") &&
      qEnvironmentVariableIsEmpty("WAYLAND_DISPLAY") &&
      qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
    qputenv("QT_QPA_PLATFORM", "offscreen");

  QApplication app(argc, argv);
  QApplication::setOrganizationName(QStringLiteral("Quilta"));
  QApplication::setApplicationName(QStringLiteral("Quilta demo"));
  if (options.database.empty())
    options.database =
        QDir(QApplication::applicationDirPath()).filePath("orders.sqlite").toStdString();
  if (!screenshot.empty()) options.saveLayout = false;

  try {
    demo::MainWindow window(options);
    window.resize(1280, 760);
    window.show();
    if (!screenshot.empty()) {
      // A few rounds of the event loop let the layout, the scroll bars and the first paint settle.
      QTimer::singleShot(400, &window, [&] {
        const QString file = QString::fromStdString(screenshot);
        if (!window.grab().save(file)) {
          std::fprintf(stderr, "cannot write %s\n", screenshot.c_str());
          QApplication::exit(1);
          return;
        }
        std::printf("screenshot: %s\n",
                    QFileInfo(file).absoluteFilePath().toLocal8Bit().constData());
        QApplication::quit();
      });
    }
    return QApplication::exec();
  } catch (const quilta::Error& e) {
    std::fprintf(stderr, "quilta_demo: %s\n", e.what());
  } catch (const std::exception& e) {
    std::fprintf(stderr, "quilta_demo: %s\n", e.what());
  }
  return 1;
}
