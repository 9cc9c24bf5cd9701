# Fish completion of railwright-cli.

function __railwright_cli_steps
    if string match -qri '\.nlelem$' -- (commandline -opc)
%FISH_ELEMENT_STEPS%
    else
%FISH_TRACK_STEPS%
    end
end

complete -c railwright-cli -f
%FISH_COMMANDS%
