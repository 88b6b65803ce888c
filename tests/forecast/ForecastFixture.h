// What the forecast's end-to-end tests share: the poll cycle's fixture (a loaded Form1 over a
// real database, an observation server on loopback), the forecast's windows provided as the
// program provides them, and a portal and a news server of the test's own, answering from a
// thread because the page fetch blocks the test's thread.
#pragma once

#include "ForecastForm.h"
#include "ForecastPages.h"
#include "Promo.h"
#include "ThreadedHttpServer.h"
#include "acquisition/AcquisitionFixture.h"

#include <QMap>
#include <QMouseEvent>

#include <atomic>
#include <mutex>
#include <optional>
#include <string>

namespace skelda::test {

// A web server that serves the pages it was given by path, and a 404 page for any other.
class PageServer {
public:
    PageServer()
        : server_([this](const std::string& head) -> std::optional<std::string> {
              const std::string path = head.substr(4, head.find(' ', 4) - 4);
              if (onRequest) onRequest();
              std::lock_guard lock(mutex_);
              const auto it = pages_.find(path);
              if (it == pages_.end()) return ThreadedHttpServer::Reply(404, "<html>Not Found</html>");
              return ThreadedHttpServer::Reply(200, it->second);
          }) {}

    void Serve(const std::string& path, const QString& page) {
        std::lock_guard lock(mutex_);
        pages_[path] = page.toStdString();
    }
    ServerAddress Address() const { return {QStringLiteral("127.0.0.1"), quint16(server_.Port())}; }
    int Count() const { return int(server_.Requests().size()); }
    // The path asked for by each request, in order.
    QStringList Paths() const {
        QStringList paths;
        for (const std::string& head : server_.Requests()) {
            const std::string path = head.substr(4, head.find(' ', 4) - 4);
            paths.append(QString::fromStdString(path));
        }
        return paths;
    }

    // Runs on the server's thread at each request, while the program waits for the page.
    std::function<void()> onRequest;

private:
    std::mutex mutex_;
    std::map<std::string, std::string> pages_;
    ThreadedHttpServer server_;
};

class ForecastFixture : public AcquisitionFixture {
protected:
    void SetUp() override {
        AcquisitionFixture::SetUp();
        ProvideForecastForms(forms);
        services.forecastPortal = portal.Address();
        // Le Bourget and Heathrow have a page on the portal; Roissy has no code.
        ASSERT_TRUE(db.Exec(QStringLiteral("UPDATE \"Aéroports\" SET codeforecast = 'FRXX0076' WHERE IDA = 'LFPB'")));
        ASSERT_TRUE(db.Exec(QStringLiteral("UPDATE \"Aéroports\" SET codeforecast = 'UKXX0085' WHERE IDA = 'EGLL'")));
    }

    ForecastForm& Prevision() { return forms.Get<ForecastForm>(); }

    // A press of a mouse button on a line of List1, as the user gives it.
    void Presser(int ligne, Qt::MouseButton bouton) {
        ListBox* list = Named<ListBox>(Form(), QStringLiteral("List1"));
        const QRect rect = list->visualItemRect(list->item(ligne));
        QTest::mousePress(list->viewport(), bouton, {}, rect.center());
        QTest::mouseRelease(list->viewport(), bouton, {}, rect.center());
    }

    PageServer portal;
};

}  // namespace skelda::test
