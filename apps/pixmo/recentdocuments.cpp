#include "apps/pixmo/recentdocuments.h"

#include "apps/pixmo/viewersettings.h"

namespace pixmo::viewer {

namespace {

const QString Recent = QStringLiteral("Recent");
const QString Engine = QStringLiteral("Engine");
const QString Document = QStringLiteral("Document");
const QString Page = QStringLiteral("Page");

} // namespace

QList<DocumentAddress> RecentDocuments::load() const {
    ViewerSettings settings;
    QList<DocumentAddress> documents;
    const int count = qMin(settings.beginReadArray(Recent), static_cast<int>(Most));
    for (int index = 0; index < count; ++index) {
        settings.setArrayIndex(index);
        const DocumentAddress document{settings.value(Engine).toString(), settings.value(Document).toInt(),
                                       qBound(1, settings.value(Page, 1).toInt(), LastPage)};
        if (isEngineAddress(document.engine) && document.document > 0)
            documents.append(document);
    }
    return documents;
}

void RecentDocuments::add(const DocumentAddress& document) {
    QList<DocumentAddress> documents = load();
    documents.removeIf([&document](const DocumentAddress& other) {
        return other.engine == document.engine && other.document == document.document;
    });
    documents.prepend(document);
    save(documents.mid(0, Most));
}

void RecentDocuments::clear() {
    save({});
}

void RecentDocuments::save(const QList<DocumentAddress>& documents) {
    ViewerSettings settings;
    settings.remove(Recent);
    settings.beginWriteArray(Recent, static_cast<int>(documents.size()));
    for (int index = 0; index < documents.size(); ++index) {
        settings.setArrayIndex(index);
        settings.setValue(Engine, documents.at(index).engine);
        settings.setValue(Document, documents.at(index).document);
        settings.setValue(Page, documents.at(index).page);
    }
    settings.endArray();
}

} // namespace pixmo::viewer
