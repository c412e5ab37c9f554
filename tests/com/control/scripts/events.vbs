' A program without a window hears of the control's events.
Option Explicit
Dim view, told
told = 0
Set view = CreateObject("VellaneInet2.ImageView")
Host.Connect view, "view_"
view.Clear
Host.Check told = 1, "PageChanged was told " & told & " times"
view.LoadDocumentByDocID 0, 1
Host.Check told = 2, "a document number of 0 only clears"

Sub view_PageChanged(document, page)
    Host.Check document = 0 And page = 0, "nothing is shown"
    told = told + 1
End Sub
