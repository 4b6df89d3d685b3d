#pragma once

#include <QLineEdit>
#include <QListWidget>
#include <QPointer>

#include <memory>

/// Offers, while the user types a path into a box, the folders that may come next. The list is a
/// part of the window and takes neither the focus nor the mouse: keys go to the box, a click
/// elsewhere has its usual effect, and only what is in the box counts. QCompleter's list is a
/// window that grabs both, and its QFileSystemModel fills it late. Deleted together with the box.
class FolderOffers : public QObject {
public:
    explicit FolderOffers(QLineEdit* box);
    ~FolderOffers() override;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    QLineEdit* m_box;
    /// Created when the first folder is offered.
    QPointer<QListWidget> m_list;
    /// What the user has typed, which Escape brings back.
    QString m_typed;
    /// The folder whose subfolders are known, up to its last separator, and their names.
    QString m_folder;
    QStringList m_names;
    /// The names of that folder, as long as they are still being read.
    std::shared_ptr<const QStringList> m_awaited;

    bool IsOpen() const { return m_list != nullptr && m_list->isVisible(); }
    void Offer();
    QStringList Matching(const QString& text);
    void List(const QString& folder);
    void TakeLate(const std::shared_ptr<const QStringList>& names);
    void Open(const QStringList& names);
    void Place();
    void Close();
    void Hide();
    bool TakesKey(int key);
    void Step(int by);
    bool ReachesElsewhere(const QObject* watched, const QEvent& event) const;
};
