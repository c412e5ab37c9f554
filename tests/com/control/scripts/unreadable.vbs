Dim a
If a Then Then
