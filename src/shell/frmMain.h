#pragma once

#include "screens/Paper.h"
#include "shell/WizardPages.h"

#include <QStringList>
#include <QWidget>

#include <vector>

namespace controls {
class ctlButton;
class ctlPageHeading;
}  // namespace controls

namespace shell {

/// The wizard: the heading with its seven tabs, the pages stacked at one place below it, and five buttons. It
/// has no border and no title bar of its own; its frame is drawn, and its close button is the one of the
/// heading.
///
/// Which page shows is kept nowhere but in the heading. Each end of the wizard is an immediate end of the
/// process, without a question.
class frmMain : public QWidget {
    Q_OBJECT

public:
    /// Opens the database and makes the collections; the process ends here if the database can't be opened.
    /// The command line is what follows the program's name.
    explicit frmMain(const QString& commandLine, std::vector<PageKind> kinds = Pages());

    /// Starts Hearthbook, if the command line asked for that and it lies beside the program. It is not waited
    /// for.
    void RestartApplication() const;

protected:
    void resizeEvent(QResizeEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void closeEvent(QCloseEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;

private:
    struct FormPage {
        PageKind kind;
        qint16 tab = 0;
        QWidget* widget = nullptr;
    };

    void AddHeading();
    void AddPages();
    void AddButtons();
    void AddTutorialLink();
    controls::ctlButton* AddButton(const QString& name, const QString& caption, const screens::Place& place,
                                   void (frmMain::*action)());

    /// What has to be done once, when the form is first on the screen.
    void ActivateOnce();

    const FormPage& CurrentPage() const;
    qint16 LastTab() const;
    /// Shows the page of the current tab, filled anew.
    void ShowPage();
    /// The buttons that the position allows.
    void EnableButtons();
    /// Puts the keyboard where the user begins on the page that shows.
    void FocusFirstField();

    void GoNext();
    void GoBack();
    void SelectTab();
    void ShowHelp();
    void Cancel();
    void Finish();
    void Close();

    bool ActivatedOnce_ = false;
    bool RestartRequested_ = false;
    controls::ctlPageHeading* HeadingControl_ = nullptr;
    std::vector<FormPage> pages_;
    controls::ctlButton* cmdBack_ = nullptr;
    controls::ctlButton* cmdNext_ = nullptr;
    controls::ctlButton* cmdFinish_ = nullptr;
};

}  // namespace shell
