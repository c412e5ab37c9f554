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
/// Properties keep their values while the widget lives; a host stores what it wants to keep. A value that a
/// property refuses leaves the old one, and the reason is told by GetLastError: 380 for a value that cannot
/// be, 13 and 6 for one of another type or size. Each has a NOTIFY signal, which comes when the value has
/// become another one, whoever changed it.
class ImageView : public QWidget {
    Q_OBJECT
    /// Name of this computer in the network; read-only.
    Q_PROPERTY(QString MachineName READ machineName NOTIFY machineNameChanged)
    /// Log-in name of the current user; read-only.
    Q_PROPERTY(QString UserLogin READ userLogin NOTIFY userLoginChanged)
    /// Other than 0: the request for a page carries one more field. Not kept.
    Q_PROPERTY(short NoR READ noR WRITE setNoR NOTIFY noRChanged)
    /// How many pages the print job that was given last has; read-only.
    Q_PROPERTY(int PrintPageCount READ printPageCount NOTIFY printPageCountChanged)
    /// The pages of that job in their order, "2,3,9"; read-only.
    Q_PROPERTY(QString PrintPageSelection READ printPageSelection NOTIFY printPageSelectionChanged)
    /// The document that is shown, 0 for none. Another number than the current one loads that document
    /// at its first page, as LoadDocumentByDocID does.
    Q_PROPERTY(int DocID READ docID WRITE setDocID NOTIFY docIDChanged)
    /// The page that is shown or on its way, 1 to PageCount; 0 without a document. Setting it shows
    /// that page; a number out of range means the nearest page.
    Q_PROPERTY(short Page READ page WRITE setPage NOTIFY pageChanged)
    /// How many pages the document has; 0 until the server has told it. Read-only.
    Q_PROPERTY(short PageCount READ pageCount NOTIFY pageCountChanged)
    /// Whether the print dialog begins with all pages chosen instead of the current one.
    Q_PROPERTY(
        bool DfPrintAllPages READ dfPrintAllPages WRITE setDfPrintAllPages NOTIFY dfPrintAllPagesChanged)
    /// The paper of print jobs; psDefault is the printer's own.
    Q_PROPERTY(vlPaperSize DfPrintPaperSize READ dfPrintPaperSize WRITE setDfPrintPaperSize NOTIFY
                   dfPrintPaperSizeChanged)
    /// Whether printed page numbers count the job's pages or the document's.
    Q_PROPERTY(vlPageNumStyle PrintPageNumStyle READ printPageNumStyle WRITE setPrintPageNumStyle NOTIFY
                   printPageNumStyleChanged)
    /// Whether the button of the thumbnails is there.
    Q_PROPERTY(
        bool ThumbsAvailable READ thumbsAvailable WRITE setThumbsAvailable NOTIFY thumbsAvailableChanged)
    /// True: the job that runs ends at its next page and none begins, until it is false again. Not
    /// kept.
    Q_PROPERTY(bool PrintCancelJob READ printCancelJob WRITE setPrintCancelJob NOTIFY printCancelJobChanged)
    /// Height of the printed caption in points.
    Q_PROPERTY(
        short PrintCapFontSize READ printCapFontSize WRITE setPrintCapFontSize NOTIFY printCapFontSizeChanged)
    /// Whether "Page 2 of 5" stands at the foot of each printed page.
    Q_PROPERTY(bool PrintPageNums READ printPageNums WRITE setPrintPageNums NOTIFY printPageNumsChanged)
    /// A description that follows the caption on each printed page.
    Q_PROPERTY(
        QString PrintImageDesc READ printImageDesc WRITE setPrintImageDesc NOTIFY printImageDescChanged)
    /// Whether a cover sheet precedes each job; the next three, with machine and date, stand on it.
    Q_PROPERTY(
        bool PrintCoverSheet READ printCoverSheet WRITE setPrintCoverSheet NOTIFY printCoverSheetChanged)
    /// Who has asked for the print.
    Q_PROPERTY(QString PrintUserName READ printUserName WRITE setPrintUserName NOTIFY printUserNameChanged)
    /// What is printed.
    Q_PROPERTY(QString PrintItemDesc READ printItemDesc WRITE setPrintItemDesc NOTIFY printItemDescChanged)
    /// What it costs.
    Q_PROPERTY(QString PrintFee READ printFee WRITE setPrintFee NOTIFY printFeeChanged)
    /// The character between the fields of requests and answers, as agreed with the server. Blanks
    /// around it are dropped, and so is all behind the first character.
    Q_PROPERTY(QString Delimiter READ delimiter WRITE setDelimiter NOTIFY delimiterChanged)
    /// The key of the cipher, as agreed with the server. An empty one is refused (380).
    Q_PROPERTY(QString PublicKey READ publicKey WRITE setPublicKey NOTIFY publicKeyChanged)
    /// How many leading bytes of a page file the server has put into reverse order, -1 for all.
    Q_PROPERTY(int EncBytes READ encBytes WRITE setEncBytes NOTIFY encBytesChanged)
    /// A line on top of each printed page.
    Q_PROPERTY(QString PrintCaption READ printCaption WRITE setPrintCaption NOTIFY printCaptionChanged)
    /// Address of the server's request page, http or https. The server may change it at the initial
    /// contact.
    Q_PROPERTY(QString EngineAddress READ engineAddress WRITE setEngineAddress NOTIFY engineAddressChanged)
    /// Milliseconds from the user's choice of a page to its request, so that leafing through does not
    /// fetch all that is passed; from 0. A negative number is refused (380).
    Q_PROPERTY(int FetchDelay READ fetchDelay WRITE setFetchDelay NOTIFY fetchDelayChanged)
    /// Milliseconds from the last change of the size until the page is shown in shades of gray again;
    /// from 0. A negative number is refused (380).
    Q_PROPERTY(int ResizeDelay READ resizeDelay WRITE setResizeDelay NOTIFY resizeDelayChanged)
    /// 0 no border, 1 a line around the control; other numbers are refused (380).
    Q_PROPERTY(short BorderStyle READ borderStyle WRITE setBorderStyle NOTIFY borderStyleChanged)
    /// What is logged at most: 1 errors, 2 warnings, 4 everything.
    Q_PROPERTY(int MinLogLevel READ minLogLevel WRITE setMinLogLevel NOTIFY minLogLevelChanged)
    /// Path of the diagnostic log, which is appended to; "" ends it. Where it cannot be written it is
    /// refused (75).
    Q_PROPERTY(QString LogFileName READ logFileName WRITE setLogFileName NOTIFY logFileNameChanged)
    /// Whether the button of the bookmark is there.
    Q_PROPERTY(bool BookmarkAvailable READ bookmarkAvailable WRITE setBookmarkAvailable NOTIFY
                   bookmarkAvailableChanged)
    /// Background as an OLE colour: 0x00BBGGRR, or 0x800000nn for the system colour nn.
    Q_PROPERTY(uint BackColor READ backColor WRITE setBackColor NOTIFY backColorChanged)
    /// Colour of texts, as BackColor.
    Q_PROPERTY(uint ForeColor READ foreColor WRITE setForeColor NOTIFY foreColorChanged)
    /// Whether the user can work with the control; the same as QWidget's.
    Q_PROPERTY(bool Enabled READ isControlEnabled WRITE setControlEnabled NOTIFY controlEnabledChanged)
    /// Of the control's own texts.
    Q_PROPERTY(QFont Font READ controlFont WRITE setControlFont NOTIFY controlFontChanged)

public:
    /// 0 is the printer's own paper, any other value the dmPaperSize of DEVMODE with that name (DMPAPER_A4 is
    /// psA4).
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
        pnPrintJobPageNums = pixmo::pnPrintJobPageNums,   ///< within the job
        pnSourceDocPageNums = pixmo::pnSourceDocPageNums, ///< within the document
    };
    Q_ENUM(vlPageNumStyle)

    /// Empty: no server is asked before a document is.
    explicit ImageView(QWidget* parent = nullptr);
    /// Cancels what is under way and deletes the downloaded pages.
    ~ImageView() override;

    // The values of the properties above.

    QString machineName() const { return get<QString>("MachineName"); }
    QString userLogin() const { return get<QString>("UserLogin"); }
    short noR() const { return get<short>("NoR"); }
    int printPageCount() const { return get<int>("PrintPageCount"); }
    QString printPageSelection() const { return get<QString>("PrintPageSelection"); }
    int docID() const { return get<int>("DocID"); }
    short page() const { return get<short>("Page"); }
    short pageCount() const { return get<short>("PageCount"); }
    bool dfPrintAllPages() const { return get<bool>("DfPrintAllPages"); }
    vlPaperSize dfPrintPaperSize() const { return get<vlPaperSize>("DfPrintPaperSize"); }
    vlPageNumStyle printPageNumStyle() const { return get<vlPageNumStyle>("PrintPageNumStyle"); }
    bool thumbsAvailable() const { return get<bool>("ThumbsAvailable"); }
    bool printCancelJob() const { return get<bool>("PrintCancelJob"); }
    short printCapFontSize() const { return get<short>("PrintCapFontSize"); }
    bool printPageNums() const { return get<bool>("PrintPageNums"); }
    QString printImageDesc() const { return get<QString>("PrintImageDesc"); }
    bool printCoverSheet() const { return get<bool>("PrintCoverSheet"); }
    QString printUserName() const { return get<QString>("PrintUserName"); }
    QString printItemDesc() const { return get<QString>("PrintItemDesc"); }
    QString printFee() const { return get<QString>("PrintFee"); }
    QString delimiter() const { return get<QString>("Delimiter"); }
    QString publicKey() const { return get<QString>("PublicKey"); }
    int encBytes() const { return get<int>("EncBytes"); }
    QString printCaption() const { return get<QString>("PrintCaption"); }
    QString engineAddress() const { return get<QString>("EngineAddress"); }
    int fetchDelay() const { return get<int>("FetchDelay"); }
    int resizeDelay() const { return get<int>("ResizeDelay"); }
    short borderStyle() const { return get<short>("BorderStyle"); }
    int minLogLevel() const { return get<int>("MinLogLevel"); }
    QString logFileName() const { return get<QString>("LogFileName"); }
    bool bookmarkAvailable() const { return get<bool>("BookmarkAvailable"); }
    uint backColor() const { return get<uint>("BackColor"); }
    uint foreColor() const { return get<uint>("ForeColor"); }
    bool isControlEnabled() const { return get<bool>("Enabled"); }
    QFont controlFont() const { return get<QFont>("Font"); }

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
    /// The picture of the current page is in the view.
    bool isPageDisplayed() const;
    /// Nothing is under way: no transfer, no delayed fetch, no delayed repaint.
    bool isIdle() const;

    /// A letter-sized page at a readable size, and the least that shows toolbar and page; device-independent
    /// pixels.
    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

public Q_SLOTS:
    // New values of the properties above.
    void setNoR(short value) { let("NoR", value); }
    void setDocID(int value) { let("DocID", value); }
    void setPage(short value) { let("Page", value); }
    void setDfPrintAllPages(bool value) { let("DfPrintAllPages", value); }
    void setDfPrintPaperSize(vlPaperSize value) { let("DfPrintPaperSize", value); }
    void setPrintPageNumStyle(vlPageNumStyle value) { let("PrintPageNumStyle", value); }
    void setThumbsAvailable(bool value) { let("ThumbsAvailable", value); }
    void setPrintCancelJob(bool value) { let("PrintCancelJob", value); }
    void setPrintCapFontSize(short value) { let("PrintCapFontSize", value); }
    void setPrintPageNums(bool value) { let("PrintPageNums", value); }
    void setPrintImageDesc(const QString& value) { let("PrintImageDesc", value); }
    void setPrintCoverSheet(bool value) { let("PrintCoverSheet", value); }
    void setPrintUserName(const QString& value) { let("PrintUserName", value); }
    void setPrintItemDesc(const QString& value) { let("PrintItemDesc", value); }
    void setPrintFee(const QString& value) { let("PrintFee", value); }
    void setDelimiter(const QString& value) { let("Delimiter", value); }
    void setPublicKey(const QString& value) { let("PublicKey", value); }
    void setEncBytes(int value) { let("EncBytes", value); }
    void setPrintCaption(const QString& value) { let("PrintCaption", value); }
    void setEngineAddress(const QString& value) { let("EngineAddress", value); }
    void setFetchDelay(int value) { let("FetchDelay", value); }
    void setResizeDelay(int value) { let("ResizeDelay", value); }
    void setBorderStyle(short value) { let("BorderStyle", value); }
    void setMinLogLevel(int value) { let("MinLogLevel", value); }
    void setLogFileName(const QString& value) { let("LogFileName", value); }
    void setBookmarkAvailable(bool value) { let("BookmarkAvailable", value); }
    void setBackColor(uint value) { let("BackColor", value); }
    void setForeColor(uint value) { let("ForeColor", value); }
    void setControlEnabled(bool value) { let("Enabled", value); }
    void setControlFont(const QFont& value) { let("Font", value); }

    /// Repaints the control and the page.
    void Refresh();
    /// Deletes the downloaded page files: a page is fetched again when it is wanted again. The one in the
    /// view stays.
    void clearCache();
    /// Leaves the viewer without a document; transfers that still come are dropped. PageChanged(0, 0) is
    /// emitted.
    void Clear();
    /// Loads a document and shows that page of it: 0 means the first, a negative number its absolute value.
    /// Returns when the server has been contacted, and handles events meanwhile. The page comes later
    /// (PageChanged); what fails on the way is shown to the user. 0 as document leaves the viewer empty.
    void LoadDocumentByDocID(int DocID, int PageNum);
    /// Prints those pages of the document to a PDF file, fitted to the page or in full size, and asks nobody.
    /// Returns when it is done, and handles events meanwhile. How many pages are in the file; 0 when there
    /// is none.
    int PrintToFile(const QString& FileName, const QList<short>& Pages, bool FullSize);
    /// What went wrong last: the number as in the log, 0 for nothing yet; where; a text for people. HelpFile
    /// and HelpContext are empty and 0 unless the failure names some.
    void GetLastError(int& Number, QString& Source, QString& Description, QString& HelpFile,
                      int& HelpContext) const;

Q_SIGNALS:
    // What is passed by reference may be changed by a slot that is connected directly. Such a signal cannot
    // be queued.

    /// The user has clicked the control or the page, once or twice in a row.
    void Click();
    void DblClick();
    /// A key of the page: its virtual-key code, and the sum of 1 Shift, 2 Ctrl, 4 Alt. KeyCode set to 0 keeps
    /// the character from KeyPress.
    void KeyDown(short& KeyCode, short& Shift);
    /// A character was typed: its code in windows-1252.
    void KeyPress(short& KeyAscii);
    void KeyUp(short& KeyCode, short& Shift);
    /// All pages of a print job are there, and it is about to begin unless CancelJob becomes true. Data is
    /// the document's number as text, SelectedPages as PrintPageSelection. Both signals come, in this order.
    void PrintJobBegin(short Pages, const QString& Data, bool& CancelJob);
    void PrintJobBeginEX(short Pages, const QString& SelectedPages, const QString& Data, bool& CancelJob);
    /// A job has ended; how many of its pages were handed to the printer.
    void PrintJobFinish(short Pages, const QString& Data);
    /// That page is about to be shown; 0, 0 when the viewer was cleared.
    void PageChanged(int DocID, int Page);
    /// The user has pressed the bookmark's button on that page.
    void BookmarkRequested(int DocID, int Page);
    /// Read-out, notice, state of the commands or progress has changed.
    void interfaceChanged();

    // NOTIFY of the properties.
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

    // Defined for the types that properties have.
    template <typename Type>
    Type get(const char* property) const;
    template <typename Type>
    void let(const char* property, const Type& value);

    std::unique_ptr<ImageViewPrivate> d_;
};

} // namespace pixmo::qt
