// SPDX-License-Identifier: MIT
#include "platform/generic/FileDialogFolderChooser.h"

#include "support/TestDesktop.h"

#include <QTemporaryDir>
#include <QTest>

using namespace Qt::StringLiterals;

class FileDialogFolderChooserTest final : public QObject
{
    Q_OBJECT

private slots:
    void init()
    {
        m_parent = std::make_unique<QWidget>();
        m_parent->show();
        m_chosen.clear();
        choose();
    }

    void dialog_isForOneFolder_whichCanBeNew()
    {
        QCOMPARE(dialog()->fileMode(), QFileDialog::Directory);
        QVERIFY(dialog()->testOption(QFileDialog::ShowDirsOnly));
        QVERIFY(!dialog()->testOption(QFileDialog::ReadOnly));
        QCOMPARE(dialog()->labelText(QFileDialog::Accept), u"Choose"_s);
        QVERIFY(dialog()->isModal());
    }

    void secondRequest_opensNoSecondDialog()
    {
        choose();
        QCOMPARE(m_parent->findChildren<QFileDialog *>().size(), 1);
    }

    void answer_isTheFolder_andTheParentComesBack()
    {
        const QTemporaryDir folder;
        dialog()->setDirectory(folder.path());
        static_cast<QDialog *>(dialog())->accept();
        QCOMPARE(m_chosen, QStringList{folder.path()});
        QCOMPARE(m_desktop.presented.constLast(), m_parent.get());
    }

    void cancelled_isNoAnswer()
    {
        static_cast<QDialog *>(dialog())->reject();
        QCOMPARE(m_chosen, QStringList());
        QCOMPARE(m_desktop.presented.constLast(), m_parent.get());
    }

private:
    void choose()
    {
        m_chooser.choose(*m_parent, u"Choose"_s,
                         [this](const QString &path) { m_chosen.append(path); });
    }
    [[nodiscard]] QFileDialog *dialog() const { return m_parent->findChild<QFileDialog *>(); }

    TestDesktop m_desktop;
    Desktop m_capabilities = m_desktop.capabilities();
    FileDialogFolderChooser m_chooser{*m_capabilities.windows};
    std::unique_ptr<QWidget> m_parent;
    QStringList m_chosen;
};

QTEST_MAIN(FileDialogFolderChooserTest)
#include "FileDialogFolderChooserTest.moc"
