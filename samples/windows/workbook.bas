Attribute VB_Name = "PixmoSmoke"
' A workbook macro: import this file (Alt+F11, File, Import File) and run ShowPixmo (Alt+F8).
' Puts the control on a new sheet, or tells why it could not; then lists what it has to say.
Option Explicit

Public Sub ShowPixmo()
    Dim sheet As Object, shape As Object, view As Object, line As Long
    Set sheet = ActiveWorkbook.Sheets.Add
    Set shape = sheet.OLEObjects.Add(ClassType:="VellaneInet2.ImageView.1", Left:=200, Top:=10, _
                                     Width:=400, Height:=500)
    Set view = shape.Object
    line = 1
    Report sheet, line, "Fetch delay (300)", view.FetchDelay
    Report sheet, line, "Delimiter (a middle dot)", view.Delimiter
    Report sheet, line, "User", view.UserLogin
    Report sheet, line, "Machine", view.MachineName
    On Error Resume Next
    view.PublicKey = ""
    Report sheet, line, "An empty key is refused (380)", Err.Number And &HFFFF&
    On Error GoTo 0
    view.EngineAddress = InputBox("Address of the imaging server's page:", "Pixmo")
    If view.EngineAddress <> "" Then view.LoadDocumentByDocID CLng(InputBox("Document:", "Pixmo", "1001")), 1
    Report sheet, line, "Pages", view.PageCount
End Sub

Private Sub Report(sheet As Object, line As Long, what As String, value As Variant)
    sheet.Cells(line, 1).Value = what
    sheet.Cells(line, 2).Value = value
    line = line + 1
End Sub
