' A form with the control, run by pixmo_script:
'
'     pixmo_script form.vbs ADDRESS DOCUMENT [PAGE]
'
' Shows the document in a window until ten seconds have passed without another page.
Option Explicit
Dim view, quiet, page
page = 1
If Host.Argument(2) <> "" Then page = CInt(Host.Argument(2))
Set view = CreateObject("VellaneInet2.ImageView")
view.EngineAddress = Host.Argument(0)
view.ThumbsAvailable = True
view.BookmarkAvailable = True
Host.Connect view, "view_"
Host.Show view
view.LoadDocumentByDocID CLng(Host.Argument(1)), page
quiet = 0
Do While quiet < 100
    Host.Sleep 100
    quiet = quiet + 1
Loop
Host.Check view.PageCount > 0, "the document has no pages"
Host.Echo "document " & view.DocID & " has " & view.PageCount & " pages"

Sub view_PageChanged(document, number)
    If document > 0 Then Host.Echo "page " & number
    quiet = 0
End Sub

Sub view_BookmarkRequested(document, number)
    Host.Echo "bookmark at page " & number
End Sub

Sub view_PrintJobBegin(pages, data, cancelJob)
    Host.Echo "a job of " & pages & " pages is refused"
    cancelJob = True
End Sub
