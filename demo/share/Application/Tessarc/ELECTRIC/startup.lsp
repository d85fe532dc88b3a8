; Start-up file of the discipline: shows the palette. Its programs would be loaded here.
(defun kv2dMenu_OnSelchangeToggle (application name state)
  (princ (strcat "\nToggle \"" name "\" is " (if (= state 1) "on" "off")))
  (princ))
(defun kv2dMenu_OnSpecClick ()
  (princ "\nSpec chosen")
  (princ))
(kv2dMenu_Init 1 T)
