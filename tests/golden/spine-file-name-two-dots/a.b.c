*SET_PART
         4
         6
*NODE
       1             0.5            0.25           -0.75
*END
