#pragma once

#include "core/control/enumerations.h"

#include <QFont>
#include <QList>
#include <QString>
#include <QWidget>
#include <memory>

class QAction;
class QNetworkAccessManager;

namespace pixmo::qt {

class ImageViewPrivate;

/// A viewer of document pages that an imaging server delivers. The host sets the server's address and calls
/// LoadDocumentByDocID; the rest happens by itself, on the thread of the user interface.
///
/// The widget may be destroyed at any time, in a slot of one of its own signals too. It says nothing while
/// it is being destroyed.
///
/// A value that a property refuses leaves the old one; the reason is told by GetLastError.
class ImageView : public QWidget {
    Q_OBJECT
    Q_PROPERTY(QString MachineName READ machineName NOTIFY machineNameChanged)
    Q_PROPERTY(QString UserLogin READ userLogin NOTIFY userLoginChanged)
    Q_PROPERTY(short NoR READ noR WRITE setNoR NOTIFY noRChanged)
    Q_PROPERTY(int PrintPageCount READ printPageCount NOTIFY printPageCountChanged)
    Q_PROPERTY(QString PrintPageSelection READ printPageSelection NOTIFY printPageSelectionChanged)
    Q_PROPERTY(int DocID READ docID WRITE setDocID NOTIFY docIDChanged)
    Q_PROPERTY(short Page READ page WRITE setPage NOTIFY pageChanged)
    Q_PROPERTY(short PageCount READ pageCount NOTIFY pageCountChanged)
    Q_PROPERTY(
        bool DfPrintAllPages READ dfPrintAllPages WRITE setDfPrintAllPages NOTIFY dfPrintAllPagesChanged)
    Q_PROPERTY(vlPaperSize DfPrintPaperSize READ dfPrintPaperSize WRITE setDfPrintPaperSize NOTIFY
                   dfPrintPaperSizeChanged)
    Q_PROPERTY(vlPageNumStyle PrintPageNumStyle READ printPageNumStyle WRITE setPrintPageNumStyle NOTIFY
                   printPageNumStyleChanged)
    Q_PROPERTY(
        bool ThumbsAvailable READ thumbsAvailable WRITE setThumbsAvailable NOTIFY thumbsAvailableChanged)
    Q_PROPERTY(bool PrintCancelJob READ printCancelJob WRITE setPrintCancelJob NOTIFY printCancelJobChanged)
    Q_PROPERTY(
        short PrintCapFontSize READ printCapFontSize WRITE setPrintCapFontSize NOTIFY printCapFontSizeChanged)
    Q_PROPERTY(bool PrintPageNums READ printPageNums WRITE setPrintPageNums NOTIFY printPageNumsChanged)
    Q_PROPERTY(
        QString PrintImageDesc READ printImageDesc WRITE setPrintImageDesc NOTIFY printImageDescChanged)
    Q_PROPERTY(
        bool PrintCoverSheet READ printCoverSheet WRITE setPrintCoverSheet NOTIFY printCoverSheetChanged)
    Q_PROPERTY(QString PrintUserName READ printUserName WRITE setPrintUserName NOTIFY printUserNameChanged)
    Q_PROPERTY(QString PrintItemDesc READ printItemDesc WRITE setPrintItemDesc NOTIFY printItemDescChanged)
    Q_PROPERTY(QString PrintFee READ printFee WRITE setPrintFee NOTIFY printFeeChanged)
    Q_PROPERTY(QString Delimiter READ delimiter WRITE setDelimiter NOTIFY delimiterChanged)
    Q_PROPERTY(QString PublicKey READ publicKey WRITE setPublicKey NOTIFY publicKeyChanged)
    Q_PROPERTY(int EncBytes READ encBytes WRITE setEncBytes NOTIFY encBytesChanged)
    Q_PROPERTY(QString PrintCaption READ printCaption WRITE setPrintCaption NOTIFY printCaptionChanged)
    Q_PROPERTY(QString EngineAddress READ engineAddress WRITE setEngineAddress NOTIFY engineAddressChanged)
    Q_PROPERTY(int FetchDelay READ fetchDelay WRITE setFetchDelay NOTIFY fetchDelayChanged)
    Q_PROPERTY(int ResizeDelay READ resizeDelay WRITE setResizeDelay NOTIFY resizeDelayChanged)
    Q_PROPERTY(short BorderStyle READ borderStyle WRITE setBorderStyle NOTIFY borderStyleChanged)
    Q_PROPERTY(int MinLogLevel READ minLogLevel WRITE setMinLogLevel NOTIFY minLogLevelChanged)
    Q_PROPERTY(QString LogFileName READ logFileName WRITE setLogFileName NOTIFY logFileNameChanged)
    Q_PROPERTY(bool BookmarkAvailable READ bookmarkAvailable WRITE setBookmarkAvailable NOTIFY
                   bookmarkAvailableChanged)
    Q_PROPERTY(uint BackColor READ backColor WRITE setBackColor NOTIFY backColorChanged)
    Q_PROPERTY(uint ForeColor READ foreColor WRITE setForeColor NOTIFY foreColorChanged)
    Q_PROPERTY(bool Enabled READ isControlEnabled WRITE setControlEnabled NOTIFY controlEnabledChanged)
    Q_PROPERTY(QFont Font READ controlFont WRITE setControlFont NOTIFY controlFontChanged)

public:
    /// 0 is the printer's own paper, any other value the code of the same name under Windows.
    enum vlPaperSize : int {
        psDefault = pixmo::psDefault,
        psLetter = pixmo::psLetter,
        psLetterSmall = pixmo::psLetterSmall,
        psTabloid = pixmo::psTabloid,
        psLedger = pixmo::psLedger,
        psLegal = pixmo::psLegal,
        psStatement = pixmo::psStatement,
        psExecutive = pixmo::psExecutive,
        psA3 = pixmo::psA3,
        psA4 = pixmo::psA4,
        psA4Small = pixmo::psA4Small,
        psA5 = pixmo::psA5,
        psB4 = pixmo::psB4,
        psB5 = pixmo::psB5,
        psFolio = pixmo::psFolio,
        psQuarto = pixmo::psQuarto,
        ps10x14 = pixmo::ps10x14,
        ps11x17 = pixmo::ps11x17,
        psNote = pixmo::psNote,
        psEnv9 = pixmo::psEnv9,
        psEnv10 = pixmo::psEnv10,
        psEnv11 = pixmo::psEnv11,
        psEnv12 = pixmo::psEnv12,
        psEnv14 = pixmo::psEnv14,
        psCSheet = pixmo::psCSheet,
        psDSheet = pixmo::psDSheet,
        psESheet = pixmo::psESheet,
        psEnvDL = pixmo::psEnvDL,
        psEnvC5 = pixmo::psEnvC5,
        psEnvC3 = pixmo::psEnvC3,
        psEnvC4 = pixmo::psEnvC4,
        psEnvC6 = pixmo::psEnvC6,
        psEnvC65 = pixmo::psEnvC65,
        psEnvB4 = pixmo::psEnvB4,
        psEnvB5 = pixmo::psEnvB5,
        psEnvB6 = pixmo::psEnvB6,
        psEnvItaly = pixmo::psEnvItaly,
        psEnvMonarch = pixmo::psEnvMonarch,
        psEnvPersonal = pixmo::psEnvPersonal,
        psFanfoldUS = pixmo::psFanfoldUS,
        psFanfoldStdGerman = pixmo::psFanfoldStdGerman,
        psFanfoldLglGerman = pixmo::psFanfoldLglGerman,
        psUser = pixmo::psUser,
    };
    Q_ENUM(vlPaperSize)

    /// How printed page numbers are counted.
    enum vlPageNumStyle : short {
        pnPrintJobPageNums = pixmo::pnPrintJobPageNums,
        pnSourceDocPageNums = pixmo::pnSourceDocPageNums,
    };
    Q_ENUM(vlPageNumStyle)

    explicit ImageView(QWidget* parent = nullptr);
    ~ImageView() override;

    QString machineName() const;
    QString userLogin() const;
    short noR() const;
    int printPageCount() const;
    QString printPageSelection() const;
    int docID() const;
    short page() const;
    short pageCount() const;
    bool dfPrintAllPages() const;
    vlPaperSize dfPrintPaperSize() const;
    vlPageNumStyle printPageNumStyle() const;
    bool thumbsAvailable() const;
    bool printCancelJob() const;
    short printCapFontSize() const;
    bool printPageNums() const;
    QString printImageDesc() const;
    bool printCoverSheet() const;
    QString printUserName() const;
    QString printItemDesc() const;
    QString printFee() const;
    QString delimiter() const;
    QString publicKey() const;
    int encBytes() const;
    QString printCaption() const;
    QString engineAddress() const;
    int fetchDelay() const;
    int resizeDelay() const;
    short borderStyle() const;
    int minLogLevel() const;
    QString logFileName() const;
    bool bookmarkAvailable() const;
    uint backColor() const;
    uint foreColor() const;
    bool isControlEnabled() const;
    QFont controlFont() const;

    /// Transfers go through the host's own access manager, which keeps belonging to the host; nullptr:
    /// through one that the widget makes. Transfers under way go on as they began.
    void setNetworkAccessManager(QNetworkAccessManager* network);
    /// After how many milliseconds without any progress a transfer is given up; 60000 at first.
    void setStallTimeout(int milliseconds);
    /// Nobody is there: message boxes write their text to standard error and answer with the safest button.
    void setUnattended(bool unattended);

    /// The command of that key ("PAGENEXT", see docs/hosting-qt.md) for the host's menus, its state kept
    /// right; nullptr for an unknown key.
    QAction* action(const QString& key) const;
    /// A forbidden command vanishes from toolbar, menus and keys.
    void setCommandForbidden(const QString& key, bool forbidden);
    /// The row of buttons on top; shown at first. Its commands can be given by menus and keys all the same.
    void setToolbarShown(bool shown);
    /// The menus of the right mouse button; shown at first.
    void setMenusShown(bool shown);
    /// "Page 3 of 12"
    QString readOut() const;
    /// What the view shows in place of the page while the page is not there; "" when it is.
    QString notice() const;
    bool isPageDisplayed() const;
    /// Nothing is under way: no transfer, no delayed fetch, no delayed repaint.
    bool isIdle() const;

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

public Q_SLOTS:
    void setNoR(short value);
    void setDocID(int value);
    void setPage(short value);
    void setDfPrintAllPages(bool value);
    void setDfPrintPaperSize(vlPaperSize value);
    void setPrintPageNumStyle(vlPageNumStyle value);
    void setThumbsAvailable(bool value);
    void setPrintCancelJob(bool value);
    void setPrintCapFontSize(short value);
    void setPrintPageNums(bool value);
    void setPrintImageDesc(const QString& value);
    void setPrintCoverSheet(bool value);
    void setPrintUserName(const QString& value);
    void setPrintItemDesc(const QString& value);
    void setPrintFee(const QString& value);
    void setDelimiter(const QString& value);
    void setPublicKey(const QString& value);
    void setEncBytes(int value);
    void setPrintCaption(const QString& value);
    void setEngineAddress(const QString& value);
    void setFetchDelay(int value);
    void setResizeDelay(int value);
    void setBorderStyle(short value);
    void setMinLogLevel(int value);
    void setLogFileName(const QString& value);
    void setBookmarkAvailable(bool value);
    void setBackColor(uint value);
    void setForeColor(uint value);
    void setControlEnabled(bool value);
    void setControlFont(const QFont& value);

    /// Repaints the control and the page.
    void Refresh();
    /// Deletes the downloaded page files.
    void clearCache();
    /// Leaves the viewer without a document.
    void Clear();
    /// Loads a document and shows that page of it: 0 means the first, a negative number its absolute value.
    /// Returns when the server has been contacted, and handles events meanwhile.
    void LoadDocumentByDocID(int DocID, int PageNum);
    /// Prints those pages of the document to a PDF file, fitted to the page or in full size, and asks nobody.
    /// Returns when it is done, and handles events meanwhile. How many pages are in the file; 0 when there
    /// is none.
    int PrintToFile(const QString& FileName, const QList<short>& Pages, bool FullSize);
    /// What went wrong last.
    void GetLastError(int& Number, QString& Source, QString& Description, QString& HelpFile,
                      int& HelpContext) const;

Q_SIGNALS:
    void Click();
    void DblClick();
    /// A slot that is connected directly may change what is passed by reference.
    void KeyDown(short& KeyCode, short& Shift);
    void KeyPress(short& KeyAscii);
    void KeyUp(short& KeyCode, short& Shift);
    void PrintJobBegin(short Pages, const QString& Data, bool& CancelJob);
    void PrintJobBeginEX(short Pages, const QString& SelectedPages, const QString& Data, bool& CancelJob);
    void PrintJobFinish(short Pages, const QString& Data);
    /// 0, 0 when the viewer was cleared.
    void PageChanged(int DocID, int Page);
    void BookmarkRequested(int DocID, int Page);
    /// Read-out, notice, state of the commands or progress has changed.
    void interfaceChanged();

    void machineNameChanged();
    void userLoginChanged();
    void noRChanged();
    void printPageCountChanged();
    void printPageSelectionChanged();
    void docIDChanged();
    void pageChanged();
    void pageCountChanged();
    void dfPrintAllPagesChanged();
    void dfPrintPaperSizeChanged();
    void printPageNumStyleChanged();
    void thumbsAvailableChanged();
    void printCancelJobChanged();
    void printCapFontSizeChanged();
    void printPageNumsChanged();
    void printImageDescChanged();
    void printCoverSheetChanged();
    void printUserNameChanged();
    void printItemDescChanged();
    void printFeeChanged();
    void delimiterChanged();
    void publicKeyChanged();
    void encBytesChanged();
    void printCaptionChanged();
    void engineAddressChanged();
    void fetchDelayChanged();
    void resizeDelayChanged();
    void borderStyleChanged();
    void minLogLevelChanged();
    void logFileNameChanged();
    void bookmarkAvailableChanged();
    void backColorChanged();
    void foreColorChanged();
    void controlEnabledChanged();
    void controlFontChanged();

protected:
    void changeEvent(QEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    friend class ImageViewPrivate;

    std::unique_ptr<ImageViewPrivate> d_;
};

} // namespace pixmo::qt
