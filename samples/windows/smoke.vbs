' Says what of the registered control works: wscript smoke.vbs (32-bit: %WINDIR%\SysWOW64\wscript.exe).
Option Explicit
Dim view, report, told
told = 0
Set view = WScript.CreateObject("VellaneInet2.ImageView", "view_")
report = "Fetch delay: " & view.FetchDelay & " (300)" & vbCrLf & _
         "Delimiter: " & view.Delimiter & " (a middle dot)" & vbCrLf & _
         "User and machine: " & view.UserLogin & ", " & view.MachineName & vbCrLf
On Error Resume Next
view.PublicKey = ""
report = report & "An empty key: error " & Err.Number & ", " & Err.Source & " (380, VellaneInet.ImageView.PublicKey)" & vbCrLf
On Error GoTo 0
view.Clear
report = report & "Events told: " & told & " (1)"
MsgBox report, vbInformation, "Pixmo"

Sub view_PageChanged(document, number)
    told = told + 1
End Sub
